#include "platform/web/EngineWebView.h"

#include "platform/web/WebContextMenu.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QMenu>
#include <QWebEngineFindTextResult>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

namespace {

const QString paintedHandler = u"painted"_s;

// The first frame asks for the page to be drawn, the second comes after it was.
const QString reportPaint = u"requestAnimationFrame(() => requestAnimationFrame("
                            "() => window.webkit.messageHandlers.painted.postMessage(0)));"_s;

QWebEnginePage::WebAction engineAction(EditAction action) {
    switch (action) {
    case EditAction::undo:
        return QWebEnginePage::Undo;
    case EditAction::redo:
        return QWebEnginePage::Redo;
    case EditAction::cut:
        return QWebEnginePage::Cut;
    case EditAction::copy:
        return QWebEnginePage::Copy;
    case EditAction::paste:
        return QWebEnginePage::Paste;
    case EditAction::pasteAndMatchStyle:
        return QWebEnginePage::PasteAndMatchStyle;
    case EditAction::selectAll:
        return QWebEnginePage::SelectAll;
    }
    return QWebEnginePage::NoWebAction;
}

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
    m_webPage->settings()->setAttribute(QWebEngineSettings::ShowScrollBars, m_isEditable);
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

void EngineWebView::perform(EditAction action) {
    m_webPage->triggerAction(engineAction(action));
}

void EngineWebView::pressMarkerKey() {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, Qt::Key_F24, Qt::NoModifier);
        QCoreApplication::sendEvent(focusProxy(), &event);
    }
}

void EngineWebView::contextMenuEvent(QContextMenuEvent *event) {
    auto *menu = makeContextMenu(this, m_isEditable);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(event->globalPos());
}
