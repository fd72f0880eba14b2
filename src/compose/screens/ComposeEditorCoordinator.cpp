#include "compose/screens/ComposeEditorCoordinator.h"

#include "compose/EditorPage.h"
#include "compose/EditorScript.h"
#include "compose/screens/EditorWebViewRef.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

/// A page that is silent for so long hangs.
constexpr auto answerPatience = std::chrono::seconds(5);

} // namespace

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
    m_lastFetch = 0;
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
    putContent(m_initialContent);
}

void ComposeEditorCoordinator::putContent(const QString &html) {
    // Until the page reports it, it would be lost with the page.
    m_lastContent = html;
    m_webView->evaluateJavaScript(EditorScript::setContent(html), [self = QPointer(this)](const QVariant &) {
        if (self)
            Q_EMIT self->ready();
    });
}

void ComposeEditorCoordinator::webViewDidFinish() {
    m_isWebViewReady = true;
    if (m_lostContent)
        putContent(*m_lostContent);
    applyInitialContent();
    if (!m_lastContent)
        Q_EMIT ready();
}

void ComposeEditorCoordinator::webViewDidReceiveMessage(const QString &name, const QVariant &body) {
    if (body.typeId() != QMetaType::QString)
        return;
    const auto text = body.toString();
    if (name == EditorHandler::contentChanged)
        receiveContent(text);
    else if (name == EditorHandler::contentFetched)
        answerFetch(text);
    else if (name == EditorHandler::formatChanged)
        m_ref->activeCommands = text.split(u' ', Qt::SkipEmptyParts);
    else if (name == EditorHandler::linkOpened)
        Q_EMIT linkOpened(QUrl(text));
}

void ComposeEditorCoordinator::receiveContent(const QString &html) {
    m_lastContent = html;
    Q_EMIT htmlContentChanged(html);
}

// The answer comes the way of the reports, and so after those that were sent before it.
void ComposeEditorCoordinator::fetchContent(std::function<void(std::optional<QString>)> done) {
    if (!m_isWebViewReady)
        return done(std::nullopt);
    m_fetches.enqueue(std::move(done));
    m_webView->evaluateJavaScript(EditorScript::fetchContent(++m_lastFetch));
    m_webView->pressMarkerKey();
    m_patience = Clock::shared().after(answerPatience, [this] { giveUpFetches(); });
}

void ComposeEditorCoordinator::giveUpFetches() {
    while (!m_fetches.isEmpty())
        m_fetches.dequeue()(std::nullopt);
}

void ComposeEditorCoordinator::answerFetch(const QString &html) {
    m_lastContent = html;
    if (!m_fetches.isEmpty())
        m_fetches.dequeue()(html);
}

// A text over which the page has died twice is not tried a third time.
void ComposeEditorCoordinator::webViewProcessDidTerminate() {
    m_isWebViewReady = false;
    giveUpFetches();
    if (m_lostContent && m_lostContent == m_lastContent)
        return;
    m_lostContent = m_lastContent.value_or(QString());
    QMetaObject::invokeMethod(this, &ComposeEditorCoordinator::loadPage, Qt::QueuedConnection);
}
