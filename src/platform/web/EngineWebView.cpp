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

// The first frame asks for the page to be drawn, the second comes after it was.
const QString reportPaint = u"requestAnimationFrame(() => requestAnimationFrame("
                            "() => window.webkit.messageHandlers.painted.postMessage(0)));"_s;

WebViewConfiguration withPaintReport(WebViewConfiguration configuration) {
    configuration.messageHandlers.append(paintedHandler);
    configuration.userScripts.append(reportPaint);
    return configuration;
}

} // namespace

EngineWebView::EngineWebView(const WebViewConfiguration &configuration)
    : isEditable(configuration.allowsContentJavaScript)
    , webPage(std::make_unique<WebPage>(withPaintReport(configuration), WebProfile::shared())) {
    setPage(webPage.get());
    setAcceptDrops(isEditable);
    connectPage();
}

EngineWebView::~EngineWebView() {
    delegate = nullptr;
    webPage->disconnect(this);
    setPage(nullptr);
}

void EngineWebView::connectPage() {
    connect(webPage.get(), &QWebEnginePage::loadFinished, this, &EngineWebView::finish);
    connect(webPage->scriptBridge(), &ScriptBridge::messageReceived, this, &EngineWebView::receive);
    connect(webPage.get(), &WebPage::linkActivated, this, [this](const QUrl &url) {
        if (delegate)
            delegate->webViewDidActivateLink(url);
    });
    connect(webPage.get(), &QWebEnginePage::renderProcessTerminated, this, [this] {
        if (delegate)
            delegate->webViewProcessDidTerminate();
    });
}

void EngineWebView::finish() {
    if (delegate)
        delegate->webViewDidFinish();
}

void EngineWebView::receive(const QString &name, const QVariant &body) {
    if (!delegate)
        return;
    if (name == paintedHandler)
        delegate->webViewDidPaint();
    else
        delegate->webViewDidReceiveMessage(name, body);
}

void EngineWebView::load(const QByteArray &html, RemoteContent remoteContent) {
    webPage->show(html, remoteContent);
}

void EngineWebView::allowImage(const QUrl &url) {
    webPage->requestGate()->allowImage(url);
}

void EngineWebView::evaluateJavaScript(const QString &script, std::function<void(const QVariant &)> completion) {
    webPage->runJavaScript(script, webPage->scriptBridge()->world(), completion);
}

void EngineWebView::setBackgroundColor(const QColor &color) {
    webPage->setBackgroundColor(color);
}

void EngineWebView::setMagnification(qreal factor) {
    webPage->setZoomFactor(factor);
}

void EngineWebView::findText(const QString &text, bool backward, std::function<void(int)> completion) {
    webPage->findText(text, backward ? QWebEnginePage::FindBackward : QWebEnginePage::FindFlags(),
                      [completion](const QWebEngineFindTextResult &result) {
                          if (completion)
                              completion(result.numberOfMatches());
                      });
}

QString EngineWebView::selectedText() const {
    return webPage->selectedText();
}

void EngineWebView::copySelection() {
    webPage->triggerAction(QWebEnginePage::Copy);
}

void EngineWebView::selectAll() {
    webPage->triggerAction(QWebEnginePage::SelectAll);
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
    if (isEditable)
        menu->addAction(tr("Cut"), webPage.get(), [this] { webPage->triggerAction(QWebEnginePage::Cut); });
    menu->addAction(tr("Copy"), this, &EngineWebView::copySelection)->setEnabled(webPage->hasSelection());
    if (isEditable)
        menu->addAction(tr("Paste"), webPage.get(), [this] { webPage->triggerAction(QWebEnginePage::Paste); });
    menu->addAction(tr("Select All"), this, &EngineWebView::selectAll);
}
