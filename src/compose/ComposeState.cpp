#include "compose/ComposeState.h"

#include "ai/AIService.h"
#include "compose/AttachmentFile.h"
#include "compose/ComposeHTML.h"
#include "platform/FileWriting.h"
#include "platform/Tasks.h"
#include "rules/ContactService.h"
#include "rules/TemplateService.h"

using namespace Qt::StringLiterals;

namespace {

/// What is being typed behind the addresses that are complete.
QString lastAddress(const QString &recipients) {
    return recipients.section(u',', -1).trimmed();
}

constexpr qsizetype shortestQuery = 2;

} // namespace

std::shared_ptr<ComposeState> ComposeState::make(std::shared_ptr<AppState> appState) {
    std::shared_ptr<ComposeState> state(new ComposeState(std::move(appState)));
    connect(state->viewModel.get(), &ObservableObject::changed, state.get(), &ObservableObject::scheduleChange);
    // What it offers depends on the account.
    connect(state->m_appState.get(), &ObservableObject::changed, state.get(), &ObservableObject::scheduleChange);
    return state;
}

ComposeState::ComposeState(std::shared_ptr<AppState> appState)
    : ComposeState(appState, appState->takeComposeRequest()) {}

ComposeState::ComposeState(std::shared_ptr<AppState> appState, ComposeRequest request)
    : viewModel(request.unsent ? request.unsent : std::make_shared<ComposeViewModel>())
    , m_appState(std::move(appState))
    , m_request(std::move(request))
    , m_account(m_appState->account())
    , m_presentation(m_appState->composePresentationID) {}

QString ComposeState::title() const {
    return viewModel->subject->isEmpty() ? u"New Message"_s : viewModel->subject.get();
}

void ComposeState::editorChanged(const QString &html) {
    if (!m_untouchedText)
        m_untouchedText = html;
    m_isTextTouched = m_isTextTouched || html != *m_untouchedText;
    editorHTML = html;
    viewModel->body = html;
}

void ComposeState::setContent(const QString &html) {
    m_untouchedText = std::nullopt;
    editorHTML = html;
    viewModel->body = html;
    initialEditorContent = html;
}

QStringList ComposeState::fields() const {
    const auto files = viewModel->attachments->size() + viewModel->forwardedAttachments->size();
    return {viewModel->to, viewModel->cc, viewModel->bcc, viewModel->subject, QString::number(files)};
}

bool ComposeState::isBegun() const {
    return m_isTextTouched || (m_isFilled && fields() != m_filledFields);
}

QCoro::Task<> ComposeState::loadContacts() {
    const auto self = shared_from_this();
    try {
        const auto contacts = co_await ContactService::list();
        allContacts = contacts;
    } catch (const std::exception &) {
        // Nothing is suggested.
    }
}

void ComposeState::recipientsEdited(const QString &text) {
    if (viewModel->to.get() == text)
        return;
    viewModel->to = text;
    const auto query = lastAddress(text);
    suggest(query.size() < shortestQuery ? std::vector<Contact>() : contactsMatching(allContacts, query));
}

void ComposeState::chooseSuggestion(const Contact &contact) {
    viewModel->to = contact.email;
    closeSuggestions();
}

void ComposeState::closeSuggestions() {
    suggest({});
}

void ComposeState::suggest(const std::vector<Contact> &matches) {
    contactSuggestions = matches;
    showSuggestions = !matches.empty();
}

void ComposeState::openTemplates() {
    if (!std::exchange(m_isLoadingTemplates, true))
        launch(loadTemplates());
}

QCoro::Task<> ComposeState::loadTemplates() {
    const auto self = shared_from_this();
    std::vector<EmailTemplate> loaded;
    try {
        auto list = co_await TemplateService::list();
        loaded = std::move(list);
    } catch (const std::exception &) {
        // None to choose from.
    }
    m_isLoadingTemplates = false;
    templates = loaded;
    showTemplatePicker = true;
}

void ComposeState::pickTemplate(const EmailTemplate &chosen) {
    const auto subject = chosen.subject.value_or(QString());
    const auto body = chosen.body.value_or(QString());
    if (!subject.isEmpty())
        viewModel->subject = subject;
    if (!body.isEmpty()) {
        setContent(body.contains(u'<') ? body : withLineBreaks(body));
        m_isTextTouched = true;
    }
    showTemplatePicker = false;
}

bool ComposeState::offersAI() const {
    return isAIAvailable(m_appState->currentUser);
}

bool ComposeState::canGenerate() const {
    return !isAILoading && !aiPrompt->trimmed().isEmpty();
}

void ComposeState::generate() {
    if (canGenerate())
        launch(writeText(aiPrompt));
}

QCoro::Task<> ComposeState::writeText(QString prompt) {
    const auto self = shared_from_this();
    isAILoading = true;
    const AIService service;
    const auto context = viewModel->body->isEmpty() ? std::nullopt : std::optional(viewModel->body.get());
    try {
        const auto text = co_await service.compose(prompt, context);
        // Whoever closed the sheet writes on.
        if (showAIPrompt) {
            setContent(withLineBreaks(text));
            m_isTextTouched = true;
            closeAIPrompt();
        }
    } catch (const std::exception &) {
        viewModel->errorMessage = errorText(std::current_exception());
    }
    isAILoading = false;
}

void ComposeState::closeAIPrompt() {
    aiPrompt = QString();
    showAIPrompt = false;
}

void ComposeState::attachFiles(const QList<QUrl> &urls) {
    launch(attachEach(urls));
}

QCoro::Task<> ComposeState::attachEach(QList<QUrl> urls) {
    const auto self = shared_from_this();
    ++m_attaching;
    scheduleChange();
    for (const auto &url : urls)
        co_await attach(url);
    --m_attaching;
    scheduleChange();
}

QCoro::Task<> ComposeState::attach(QUrl url) {
    const auto self = shared_from_this();
    const std::function<ComposeAttachment()> read = [url] { return readAttachmentFile(url); };
    try {
        const auto file = co_await fileWork(read);
        addFile(file);
    } catch (const std::exception &) {
        viewModel->errorMessage =
            u"Could not attach "_s + attachedFileName(url) + u": "_s + errorText(std::current_exception());
    }
}

void ComposeState::addFile(const ComposeAttachment &file) {
    if (viewModel->attachmentsSize() + file.data.size() > attachmentsLimit)
        viewModel->errorMessage = u"Attachments can total up to 25 MB."_s;
    else
        viewModel->addAttachment(file.filename, file.data, file.contentType);
}

bool ComposeState::canSend() const {
    return m_isFilled && !viewModel->isSending && m_attaching == 0;
}

QCoro::Task<> ComposeState::send() {
    const auto self = shared_from_this();
    if (m_isClosed || !canSend())
        co_return;
    SendOutcomes::Send running(m_appState->sendOutcomes);
    const bool isSent = co_await viewModel->send();
    m_isSent = isSent;
    if (isSent) {
        running.succeeded();
        Q_EMIT m_appState->sendOutcomes.messageSent(m_account);
        if (!m_isClosed)
            Q_EMIT dismissed();
    } else if (m_isClosed) {
        surfaceUnsent(viewModel->errorMessage);
    }
}

void ComposeState::surfaceUnsent(const std::optional<QString> &error) {
    m_appState->sendOutcomes.add({.account = m_account,
                                  .subject = title(),
                                  .error = error.value_or(u"It was closed before it was sent."_s),
                                  .message = viewModel});
}

void ComposeState::close() {
    m_isClosed = true;
    m_readEditor = nullptr;
    m_appState->disconnect(this);
    if (m_isSent || viewModel->isSending)
        return;
    // Nobody has given up a message that gave way to another one.
    if (isReplaced() && isBegun())
        surfaceUnsent(u"Another message was begun."_s);
    // One that was opened again can be opened once more.
    else if (m_request.unsent)
        surfaceUnsent(viewModel->errorMessage);
}

bool ComposeState::isReplaced() const {
    return m_appState->showCompose && m_appState->composePresentationID.get() != m_presentation;
}

bool ComposeState::isCurrent() const {
    return !m_isClosed && m_appState->composePresentationID.get() == m_presentation;
}
