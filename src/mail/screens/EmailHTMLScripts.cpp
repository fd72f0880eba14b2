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
        const scrolled = root.scrollHeight > window.innerHeight ? root.scrollHeight : 0;
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

// Wide content is scaled down by the view, which gives the page more room and so makes it measure again.
const QString widthScript = uR"((() => {
    let lastContent = 0, lastVisible = 0;
    const report = () => {
        const content = document.documentElement.scrollWidth, visible = window.innerWidth;
        if (content === lastContent && visible === lastVisible) return;
        [lastContent, lastVisible] = [content, visible];
        window.webkit.messageHandlers.width.postMessage([content, visible]);
    };
    new ResizeObserver(report).observe(document.body);
    document.addEventListener('load', report, true);
    window.addEventListener('load', report);
    window.addEventListener('resize', report);
    report();
})();)"_s;

} // namespace

WebViewConfiguration emailWebViewConfiguration() {
    return {.allowsContentJavaScript = false,
            .userScripts = {emailHeightScript, overflowScript, scrollScript, widthScript},
            .messageHandlers = {EmailHTMLHandler::height, EmailHTMLHandler::overflow, EmailHTMLHandler::scrolled,
                                EmailHTMLHandler::width}};
}
