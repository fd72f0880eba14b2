#include "platform/web/EngineWebView.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QWebEngineContextMenuRequest>
#include <QWebEngineFindTextResult>

using namespace Qt::StringLiterals;

namespace {

const QString paintedHandler = u"painted"_s;

// The engine tells of the first paint once it is on the screen, but never for a page on which there is nothing to see.
const QString reportPaint = uR"((() => {
    let isReported = false;
    const report = () => {
        if (!isReported) window.webkit.messageHandlers.painted.postMessage(0);
        isReported = true;
    };
    const reportAfter = frames => frames ? requestAnimationFrame(() => reportAfter(frames - 1)) : report();
    new PerformanceObserver(report).observe({ type: 'paint', buffered: true });
    reportAfter(6);
})();)"_s;

WebViewConfiguration withPaintReport(WebViewConfiguration configuration) {
    configuration.messageHandlers.append(paintedHandler);
    configuration.userScripts.append(reportPaint);
    return configuration;
}

} // namespace

EngineWebView::EngineWebView(const WebViewConfiguration &configuration)
    : m_isEditable(configuration.allowsContentJavaScript)
    , m_profile(WebProfile::shared())
    , m_webPage(std::make_unique<WebPage>(withPaintReport(configuration), m_profile.get())) {
    setPage(m_webPage.get());
    setAcceptDrops(m_isEditable);
    connectPage();
}

EngineWebView::~EngineWebView() {
    m_delegate = nullptr;
    m_webPage->disconnect(this);
    setPage(nullptr);
}

void EngineWebView::connectPage() {
    connect(m_webPage.get(), &QWebEnginePage::loadFinished, this, &EngineWebView::finish);
    connect(m_webPage->scriptBridge(), &ScriptBridge::messageReceived, this, &EngineWebView::receive);
    connect(m_webPage.get(), &WebPage::linkActivated, this, [this](const QUrl &url) {
        if (m_delegate)
            m_delegate->webViewDidActivateLink(url);
    });
    connect(m_webPage.get(), &WebPage::linkHovered, this, [this](const QString &url) {
        const QUrl link(url);
        if (m_delegate)
            m_delegate->webViewDidHoverLink(isPageURL(link) ? QUrl() : link);
    });
    connect(m_webPage.get(), &QWebEnginePage::renderProcessTerminated, this, [this] {
        if (m_delegate)
            m_delegate->webViewProcessDidTerminate();
    });
}

void EngineWebView::finish() {
    if (m_delegate)
        m_delegate->webViewDidFinish();
}

void EngineWebView::receive(const QString &name, const QVariant &body) {
    if (!m_delegate)
        return;
    if (name == paintedHandler)
        m_delegate->webViewDidPaint();
    else
        m_delegate->webViewDidReceiveMessage(name, body);
}

void EngineWebView::load(const QByteArray &html, RemoteContent remoteContent) {
    m_webPage->show(html, remoteContent);
}

void EngineWebView::allowImage(const QUrl &url) {
    m_webPage->requestGate()->allowImage(url);
}

void EngineWebView::evaluateJavaScript(const QString &script, std::function<void(const QVariant &)> completion) {
    m_webPage->runJavaScript(script, m_webPage->scriptBridge()->world(), completion);
}

void EngineWebView::setBackgroundColor(const QColor &color) {
    m_webPage->setBackgroundColor(color);
}

void EngineWebView::setMagnification(qreal factor) {
    m_webPage->setZoomFactor(factor);
}

void EngineWebView::findText(const QString &text, bool backward, std::function<void(int)> completion) {
    m_webPage->findText(text, backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags(),
                        [completion](const QWebEngineFindTextResult &result) {
                            if (completion)
                                completion(result.numberOfMatches());
                        });
}

QString EngineWebView::selectedText() const {
    return m_webPage->selectedText();
}

void EngineWebView::copySelection() {
    m_webPage->triggerAction(QWebEnginePage::Copy);
}

void EngineWebView::selectAll() {
    m_webPage->triggerAction(QWebEnginePage::SelectAll);
}

void EngineWebView::contextMenuEvent(QContextMenuEvent *event) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addLinkAction(menu);
    addEditActions(menu);
    menu->popup(event->globalPos());
}

void EngineWebView::addLinkAction(QMenu *menu) {
    const auto *request = lastContextMenuRequest();
    const auto link = request ? request->linkUrl() : QUrl();
    if (link.isEmpty() || isPageURL(link))
        return;
    menu->addAction(tr("Copy Link"), [link] { QGuiApplication::clipboard()->setText(link.toString()); });
    menu->addSeparator();
}

void EngineWebView::addEditActions(QMenu *menu) {
    if (m_isEditable)
        menu->addAction(tr("Cut"), m_webPage.get(), [this] { m_webPage->triggerAction(QWebEnginePage::Cut); });
    menu->addAction(tr("Copy"), this, &EngineWebView::copySelection)->setEnabled(m_webPage->hasSelection());
    if (m_isEditable)
        menu->addAction(tr("Paste"), m_webPage.get(), [this] { m_webPage->triggerAction(QWebEnginePage::Paste); });
    menu->addAction(tr("Select All"), this, &EngineWebView::selectAll);
}
