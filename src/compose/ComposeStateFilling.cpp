#include "compose/ComposeHTML.h"
#include "compose/ComposeState.h"
#include "platform/Tasks.h"

void ComposeState::start() {
    if (std::exchange(m_didInitialize, true))
        return;
    launch(loadContacts());
    launch(fill());
}

QCoro::Task<> ComposeState::fill() {
    const auto self = shared_from_this();
    if (m_request.unsent) {
        setContent(viewModel->body);
        finishFilling();
        co_return;
    }
    // Whose address it is says who is left out of a reply.
    co_await viewModel->loadFromAddresses();
    const std::function<void(ComposeState &)> fillNow = [](ComposeState &state) {
        state.fillFromRequest();
        state.finishFilling();
    };
    withEditorText(fillNow);
}

void ComposeState::withEditorText(std::function<void(ComposeState &)> then) {
    if (!m_readEditor)
        return then(*this);
    m_readEditor([weakSelf = weak_from_this(), then](const std::optional<QString> &html) {
        const auto self = weakSelf.lock();
        if (!self || self->m_isClosed)
            return;
        if (html)
            self->editorChanged(*html);
        then(*self);
    });
}

void ComposeState::finishFilling() {
    connect(m_appState.get(), &ObservableObject::changed, this, &ComposeState::answerSharedItems);
    takeInSharedItems();
    m_filledFields = fields();
    m_isFilled = true;
    scheduleChange();
    Q_EMIT filled();
}

void ComposeState::fillFromRequest() {
    // The person may have begun to write while the server was slow.
    const auto written = viewModel->body.get();
    if (m_request.replyTo)
        viewModel->prepareReply(*m_request.replyTo, m_request.replyAll);
    if (m_request.forward)
        viewModel->prepareForward(*m_request.forward);
    carryAttachments();
    fillFromLink();
    placeSignature(written);
}

void ComposeState::carryAttachments() {
    const auto &user = m_appState->currentUser.get();
    if (user && !user->reply_forward_attachments.value_or(true))
        return;
    for (const auto *answered : {&m_request.replyTo, &m_request.forward})
        if (*answered)
            viewModel->populateForwardedAttachments(**answered);
}

void ComposeState::fillFromLink() {
    if (!m_request.to.isEmpty())
        viewModel->to = m_request.to;
    if (!m_request.subject.isEmpty())
        viewModel->subject = m_request.subject;
    if (!m_request.cc.isEmpty()) {
        viewModel->cc = m_request.cc;
        viewModel->showCc = true;
    }
    if (!m_request.bcc.isEmpty()) {
        viewModel->bcc = m_request.bcc;
        viewModel->showBcc = true;
    }
    if (!m_request.body.isEmpty() && isCurrent())
        m_appState->sharedBody = m_request.body;
}

void ComposeState::placeSignature(const QString &written) {
    const auto &user = m_appState->currentUser.get();
    signatureHTML = signatureBlock(user ? user->signature.value_or(QString()) : QString());
    if (m_request.replyTo || m_request.forward)
        setContent(written + signatureHTML.get() + viewModel->body.get());
    else if (!signatureHTML->isEmpty())
        setContent(written + signatureHTML.get());
}

void ComposeState::answerSharedItems() {
    if (isCurrent() && !(m_appState->sharedAttachments->empty() && m_appState->sharedBody->isEmpty()))
        withEditorText(&ComposeState::takeInSharedItems);
}

void ComposeState::takeInSharedItems() {
    if (!isCurrent())
        return;
    for (const auto &file : m_appState->sharedAttachments.get())
        viewModel->addAttachment(file.filename, file.data, file.contentType);
    m_appState->sharedAttachments = {};
    const auto text = withLineBreaks(m_appState->sharedBody);
    if (text.isEmpty())
        return;
    m_appState->sharedBody = QString();
    setContent(text + (viewModel->body->isEmpty() ? signatureHTML.get() : viewModel->body.get()));
}
