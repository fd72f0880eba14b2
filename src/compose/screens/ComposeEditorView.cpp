#include "compose/screens/ComposeEditorView.h"

#include "compose/EditorPage.h"
#include "compose/screens/AttachmentReceivingWebView.h"
#include "compose/screens/ComposeEditorCoordinator.h"
#include "compose/screens/EditorInput.h"
#include "compose/screens/EditorWebViewRef.h"
#include "compose/screens/PlainEditor.h"
#include "platform/desktop/WebEngine.h"

#include <QDesktopServices>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

WebViewConfiguration editorConfiguration() {
    return {.allowsContentJavaScript = true,
            .userScripts = {},
            .messageHandlers = {EditorHandler::contentChanged, EditorHandler::contentFetched,
                                EditorHandler::formatChanged, EditorHandler::linkOpened}};
}

// A stranger's mail says where the links of a quotation lead. One to an address would come back to this program and
// take the place of the message that is being written.
void openLink(const QUrl &link) {
    static const QStringList schemes{u"http"_s, u"https"_s};
    if (schemes.contains(link.scheme()))
        QDesktopServices::openUrl(link);
}

} // namespace

ComposeEditorView::ComposeEditorView(std::shared_ptr<EditorWebViewRef> ref, QWidget *parent)
    : QWidget(parent)
    , m_ref(std::move(ref)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    if (auto webView = WebEngine::shared().takeView(editorConfiguration()))
        build(std::move(webView));
    else
        buildPlain();
}

void ComposeEditorView::build(std::unique_ptr<WebView> webView) {
    m_receiver = new AttachmentReceivingWebView(std::move(webView), this);
    layout()->addWidget(m_receiver);
    setFocusProxy(m_receiver);
    m_receiver->onAttachFiles = [this](const QList<QUrl> &files) { Q_EMIT attachFiles(files); };
    connect(m_receiver, &AttachmentReceivingWebView::filesHeld, this, &ComposeEditorView::filesHeld);
    m_receiver->webView()->setBackgroundColor(Qt::white);
    m_coordinator = new ComposeEditorCoordinator(m_receiver->webView(), m_ref, m_receiver);
    watchKeys();
    connect(m_coordinator, &ComposeEditorCoordinator::htmlContentChanged, this, &ComposeEditorView::htmlContentChanged);
    connect(m_coordinator, &ComposeEditorCoordinator::linkOpened, this, &openLink);
    QMetaObject::invokeMethod(
        this, [this] { m_ref->webView = m_receiver->webView(); }, Qt::QueuedConnection);
    m_coordinator->loadPage();
}

void ComposeEditorView::buildPlain() {
    m_plain = new PlainEditor(WebEngine::shared().unavailableReason(), this);
    layout()->addWidget(m_plain);
    setFocusProxy(m_plain);
    connect(m_plain, &PlainEditor::htmlContentChanged, this, &ComposeEditorView::htmlContentChanged);
}

void ComposeEditorView::watchKeys() {
    auto *input = new EditorInput(this);
    auto *page = m_receiver->webView()->widget();
    input->watch(page);
    input->hold();
    connect(m_coordinator, &ComposeEditorCoordinator::ready, input,
            [input, page] { input->release(page->focusProxy()); });
    connect(input, &EditorInput::linkRequested, m_ref.get(), &EditorWebViewRef::linkRequested);
    connect(input, &EditorInput::toolbarRequested, m_ref.get(), &EditorWebViewRef::toolbarRequested);
    connect(input, &EditorInput::plainPasteRequested, this, [this] { perform(EditAction::pasteAndMatchStyle); });
}

void ComposeEditorView::perform(EditAction action) {
    if (m_receiver)
        m_receiver->webView()->perform(action);
}

ComposeEditorView::~ComposeEditorView() {
    m_ref->webView = nullptr;
    delete m_coordinator;
}

void ComposeEditorView::setInitialContent(const QString &html) {
    if (m_coordinator)
        m_coordinator->setInitialContent(html);
    else if (!html.isEmpty() && std::exchange(m_plainContent, html) != html)
        m_plain->setContent(html);
}

void ComposeEditorView::fetchContent(std::function<void(std::optional<QString>)> done) {
    if (m_coordinator)
        m_coordinator->fetchContent(std::move(done));
    else
        done(m_plain->html());
}

void ComposeEditorView::focusEditor() {
    setFocus(Qt::OtherFocusReason);
}
