#include "mail/EmailDetailState.h"

#include "mail/EmailDates.h"
#include "mail/FlagChanges.h"
#include "platform/Tasks.h"

#include <QLocale>

using namespace Qt::StringLiterals;

std::shared_ptr<EmailDetailState> EmailDetailState::make(std::shared_ptr<AppState> appState) {
    std::shared_ptr<EmailDetailState> state(new EmailDetailState(std::move(appState)));
    connect(state->viewModel.get(), &ObservableObject::changed, state.get(), &ObservableObject::scheduleChange);
    connect(&FlagChanges::shared(), &FlagChanges::changed, state.get(), &EmailDetailState::takeFlag);
    return state;
}

EmailDetailState::EmailDetailState(std::shared_ptr<AppState> appState)
    : m_appState(std::move(appState)) {}

void EmailDetailState::show(const std::optional<EmailWindowRef> &wanted) {
    if (reference.get() == wanted)
        return;
    reference = wanted;
    pushed = nullptr;
    showThreadExpanded = false;
    showBlockConfirmation = false;
    showSourceSheet = false;
    viewModel->showImages = false;
    if (wanted)
        retry();
}

void EmailDetailState::retry() {
    messageMoved = false;
    if (const auto wanted = reference.get())
        launch(viewModel->loadEmail(wanted->uid, wanted->folder));
}

EmailDetailState::Content EmailDetailState::content() const {
    if (!reference.get())
        return Content::nothingSelected;
    if (viewModel->isLoading)
        return Content::loading;
    if (messageMoved)
        return Content::moved;
    return viewModel->email.get() ? Content::message : Content::failure;
}

EmailDetailState::Body EmailDetailState::body() const {
    const auto &email = viewModel->email.get();
    if (email && email->body_html && !email->body_html->isEmpty())
        return Body::html;
    if (email && email->body_text && !email->body_text->isEmpty())
        return Body::text;
    return Body::none;
}

ViewTexts EmailDetailState::placeholder() const {
    switch (content()) {
    case Content::failure:
        return {u"envelope.badge.shield.half.filled"_s, u"Couldn't Load This Email"_s,
                viewModel->errorMessage->value_or(QString())};
    case Content::moved:
        return {u"tray"_s, u"Message moved"_s, u"Select another email to read it"_s};
    default:
        return {u"envelope.open"_s, u"No email selected"_s, u"Select an email to read it"_s};
    }
}

bool EmailDetailState::offersImages() const {
    const auto &email = viewModel->email.get();
    return !viewModel->showImages && email && email->body_html && email->body_html->contains("<img"_L1);
}

void EmailDetailState::showImages() {
    viewModel->showImages = true;
}

QString EmailDetailState::subjectText() const {
    const auto &email = viewModel->email.get();
    return email ? email->subject.value_or(u"(No Subject)"_s) : QString();
}

const EmailAddress *EmailDetailState::sender() const {
    const auto &email = viewModel->email.get();
    return email && email->from && !email->from->empty() ? &email->from->front() : nullptr;
}

QString EmailDetailState::senderName() const {
    return sender() ? sender()->displayName() : u"Unknown"_s;
}

QString EmailDetailState::senderAddress() const {
    return sender() ? sender()->plainAddress() : QString();
}

QString EmailDetailState::senderDomain() const {
    return addressDomain(senderAddress());
}

QString EmailDetailState::dateText() const {
    const auto &email = viewModel->email.get();
    return email ? relativeDateText(parseEmailDate(email->date)) : QString();
}

QString EmailDetailState::fullDateText() const {
    const auto &email = viewModel->email.get();
    return email ? QLocale().toString(parseEmailDate(email->date).toLocalTime(), QLocale::LongFormat) : QString();
}

void EmailDetailState::copySubject() {
    copy(subjectText(), u"Subject copied to clipboard"_s);
}

void EmailDetailState::copyAddress(const QString &address) {
    if (!address.isEmpty())
        copy(address, address + u" copied to clipboard"_s);
}

void EmailDetailState::copySource(const QString &source) {
    copy(source, u"Source copied to clipboard"_s);
}

void EmailDetailState::copy(const QString &text, const QString &confirmation) {
    Q_EMIT copyRequested(text);
    copiedToast = ToastMessage(confirmation, ToastType::success);
}

bool EmailDetailState::hasAttachments() const {
    const auto &email = viewModel->email.get();
    return email && email->attachments && !email->attachments->empty();
}

std::vector<EmailAttachment> EmailDetailState::shownAttachments() const {
    if (!hasAttachments())
        return {};
    auto shown = *viewModel->email.get()->attachments;
    std::erase_if(shown, std::mem_fn(&EmailAttachment::isInlineImage));
    return shown;
}

QString EmailDetailState::threadTitle() const {
    return u"Thread (%1 related)"_s.arg(viewModel->threadEmails->size());
}

void EmailDetailState::toggleThread() {
    showThreadExpanded = !showThreadExpanded;
}

void EmailDetailState::open(const EmailNavItem &item) {
    const auto next = make(m_appState);
    next->m_isPushed = true;
    connect(next.get(), &EmailDetailState::dismissRequested, this, [this] { pushed = nullptr; });
    next->show(EmailWindowRef{item.uid, item.folderPath});
    pushed = next;
}

void EmailDetailState::openRelated(qint64 uid) {
    if (const auto shown = reference.get())
        open({uid, shown->folder});
}

void EmailDetailState::goBack() {
    if (m_isPushed)
        Q_EMIT dismissRequested();
}
