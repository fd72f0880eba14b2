#include "compose/screens/ComposeEditorView.h"

#include "compose/EditorPageScript.h"
#include "compose/screens/AttachmentReceivingWebView.h"
#include "compose/screens/ComposeEditorCoordinator.h"
#include "compose/screens/EditorWebViewRef.h"
#include "platform/desktop/WebEngine.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

WebViewConfiguration editorConfiguration() {
    return {
        .allowsContentJavaScript = true,
        .userScripts = {},
        .messageHandlers = {EditorHandler::contentChanged, EditorHandler::formatChanged, EditorHandler::linkOpened}};
}

} // namespace

ComposeEditorView::ComposeEditorView(std::shared_ptr<EditorWebViewRef> ref, QWidget *parent)
    : QWidget(parent)
    , m_ref(std::move(ref)) {
    auto webView = WebEngine::shared().takeView(editorConfiguration());
    if (!webView)
        return;
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_receiver = new AttachmentReceivingWebView(std::move(webView), this);
    layout->addWidget(m_receiver);
    m_receiver->onAttachFiles = [this](const QList<QUrl> &files) { Q_EMIT attachFiles(files); };
    m_receiver->webView()->setBackgroundColor(Qt::white);
    m_coordinator = new ComposeEditorCoordinator(m_receiver->webView(), m_ref, m_receiver);
    connect(m_coordinator, &ComposeEditorCoordinator::htmlContentChanged, this, &ComposeEditorView::htmlContentChanged);
    QMetaObject::invokeMethod(
        this, [this] { m_ref->webView = m_receiver->webView(); }, Qt::QueuedConnection);
    m_coordinator->loadPage();
    setFocusProxy(m_receiver);
}

ComposeEditorView::~ComposeEditorView() {
    m_ref->webView = nullptr;
    delete m_coordinator;
}

void ComposeEditorView::setInitialContent(const QString &html) {
    if (m_coordinator)
        m_coordinator->setInitialContent(html);
}

void ComposeEditorView::fetchContent(std::function<void(std::optional<QString>)> done) {
    if (!m_coordinator)
        return done(std::nullopt);
    m_coordinator->fetchContent(std::move(done));
}

void ComposeEditorView::focusEditor() {
    m_ref->focusEditor();
}
