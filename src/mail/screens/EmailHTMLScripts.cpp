#include "mail/screens/EmailHTMLScripts.h"

#include "mail/EmailHTMLPage.h"

using namespace Qt::StringLiterals;

namespace {

// The column decides where the page is scrolled to; what moves the page by itself, as a selection that is dragged over
// the edge or a match that was found does, is reported so that the column follows.
const QString scrollScript = uR"((() => {
    let expected = 0;
    window.scrollPage = offset => {
        window.scrollTo(window.scrollX, offset);
        expected = window.scrollY;
    };
    window.addEventListener('scroll', () => {
        if (Math.abs(window.scrollY - expected) <= 1) return;
        expected = window.scrollY;
        window.webkit.messageHandlers.scrolled.postMessage(expected);
    });
})();)"_s;

// What sticks out of the body, by its margins or because the mail gave the body a height of its own.
const QString overflowScript = uR"((() => {
    let lastOverflow = 0;
    const heightOf = element => Math.ceil(element.getBoundingClientRect().height);
    const report = () => {
        const root = document.documentElement;
        const scrolled = root.scrollHeight > window.innerHeight ? root.scrollHeight / window.fitScale : 0;
        const overflow = Math.max(0, Math.max(scrolled, heightOf(root)) - heightOf(document.body));
        if (Math.abs(overflow - lastOverflow) <= 1) return;
        lastOverflow = overflow;
        window.webkit.messageHandlers.overflow.postMessage(overflow);
    };
    new ResizeObserver(report).observe(document.body);
    document.addEventListener('load', report, true);
    window.addEventListener('load', report);
    report();
})();)"_s;

// A page that is wider than its view is scaled down until its whole width can be seen, before anything of it is. One
// that grows with its room, so that scaling does not help, keeps its size.
const QString fitScript = uR"((() => {
    const smallestScale = 0.5, rounding = 1;
    const root = document.documentElement;
    let neededWidth = 0, lastVisible = 0, lastContent = 0, lastScale = 1, isEnlarged = false;
    window.fitScale = 1;
    const overflowFor = width => {
        window.fitScale = width ? Math.min(1, Math.max(smallestScale, window.innerWidth / width)) : 1;
        root.style.setProperty('zoom', window.fitScale, 'important');
        return root.scrollWidth - window.innerWidth;
    };
    const fit = () => {
        let overflow = overflowFor(neededWidth);
        while (overflow > rounding && window.fitScale > smallestScale) {
            const wider = root.scrollWidth / window.fitScale;
            const rest = overflowFor(wider);
            if (rest > overflow / 2) {
                overflowFor(neededWidth);
                break;
            }
            [neededWidth, overflow] = [wider, rest];
        }
    };
    const update = () => {
        const isKnown = window.innerWidth === lastVisible && root.scrollWidth === lastContent;
        if (isEnlarged || isKnown || !window.innerWidth) return;
        fit();
        [lastVisible, lastContent] = [window.innerWidth, root.scrollWidth];
        if (window.fitScale === lastScale) return;
        lastScale = window.fitScale;
        window.webkit.messageHandlers.fit.postMessage(lastScale);
    };
    // Whoever enlarges the message wants it wider than the view.
    window.setEnlarged = enlarged => {
        isEnlarged = enlarged;
        update();
    };
    new ResizeObserver(update).observe(document.body);
    document.addEventListener('load', update, true);
    window.addEventListener('load', update);
    window.addEventListener('resize', update);
    update();
})();)"_s;

} // namespace

WebViewConfiguration emailWebViewConfiguration() {
    return {.allowsContentJavaScript = false,
            .userScripts = {fitScript, emailHeightScript, overflowScript, scrollScript},
            .messageHandlers = {EmailHTMLHandler::height, EmailHTMLHandler::overflow, EmailHTMLHandler::scrolled,
                                EmailHTMLHandler::fit}};
}
