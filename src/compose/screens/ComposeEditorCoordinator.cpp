#include "compose/screens/ComposeEditorCoordinator.h"

#include "compose/EditorPage.h"
#include "compose/EditorPageScript.h"
#include "compose/EditorScript.h"
#include "compose/screens/EditorWebViewRef.h"

#include <QPointer>

using namespace Qt::StringLiterals;

ComposeEditorCoordinator::ComposeEditorCoordinator(WebView *webView, std::shared_ptr<EditorWebViewRef> ref,
                                                   QObject *parent)
    : QObject(parent)
    , m_webView(webView)
    , m_ref(std::move(ref)) {
    m_webView->setDelegate(this);
}

ComposeEditorCoordinator::~ComposeEditorCoordinator() {
    m_webView->setDelegate(nullptr);
}

void ComposeEditorCoordinator::loadPage() {
    m_isWebViewReady = false;
    m_webView->load(editorPage(makeEditorNonce()), RemoteContent::Blocked);
    m_ref->allowImagesAgain();
}

void ComposeEditorCoordinator::setInitialContent(const QString &html) {
    m_initialContent = html;
    applyInitialContent();
}

void ComposeEditorCoordinator::applyInitialContent() {
    if (!m_isWebViewReady || m_initialContent.isEmpty() || m_lastAppliedContent == m_initialContent)
        return;
    m_lastAppliedContent = m_initialContent;
    m_webView->evaluateJavaScript(EditorScript::setContent(m_initialContent));
}

void ComposeEditorCoordinator::webViewDidFinish() {
    m_isWebViewReady = true;
    applyInitialContent();
}

void ComposeEditorCoordinator::webViewDidReceiveMessage(const QString &name, const QVariant &body) {
    if (name == EditorHandler::contentChanged && body.typeId() == QMetaType::QString)
        receiveContent(body.toString());
}

void ComposeEditorCoordinator::receiveContent(const QString &html) {
    m_lastContent = html;
    Q_EMIT htmlContentChanged(html);
}

void ComposeEditorCoordinator::fetchContent(std::function<void(std::optional<QString>)> done) {
    if (!m_isWebViewReady)
        return done(std::nullopt);
    m_webView->evaluateJavaScript(u"getContent()"_s, [done](const QVariant &html) {
        done(html.typeId() == QMetaType::QString ? std::optional(html.toString()) : std::nullopt);
    });
}

void ComposeEditorCoordinator::answerFetches(const std::optional<QString> &html) {
    for (const auto &done : std::exchange(m_fetches, {}))
        done(html);
}

void ComposeEditorCoordinator::webViewProcessDidTerminate() {
    answerFetches(std::nullopt);
}
