#include "mail/EmailListActions.h"

#include "ai/AIService.h"
#include "mail/SpamScan.h"
#include "platform/Tasks.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const auto inbox = u"INBOX"_s;
const auto seen = u"seen"_s;
const auto flagged = u"flagged"_s;

} // namespace

EmailListActions::EmailListActions(std::shared_ptr<AppState> appState, std::shared_ptr<MailboxViewModel> model)
    : m_appState(std::move(appState))
    , m_model(std::move(model)) {}

bool EmailListActions::isJunkFolder() const {
    return requestFolder == m_appState->junkFolderPath();
}

bool EmailListActions::canCheckSpam() const {
    return isAIAvailable(m_appState->currentUser);
}

void EmailListActions::reply(qint64 uid, bool toAll) {
    const Prepare toSender = [](AppState &appState, const EmailDetail &email) {
        appState.composeReplyTo = email;
        appState.composeReplyAll = false;
    };
    const Prepare toEverybody = [](AppState &appState, const EmailDetail &email) {
        appState.composeReplyTo = email;
        appState.composeReplyAll = true;
    };
    launch(write(m_appState, uid, requestFolder, toAll ? toEverybody : toSender));
}

void EmailListActions::forward(qint64 uid) {
    launch(write(m_appState, uid, requestFolder,
                 [](AppState &appState, const EmailDetail &email) { appState.composeForward = email; }));
}

QCoro::Task<> EmailListActions::write(std::shared_ptr<AppState> appState, qint64 uid, QString folder, Prepare prepare) {
    const auto account = appState->account();
    try {
        const auto email = co_await EmailService::getEmail(uid, folder);
        // Somebody else may have signed in meanwhile.
        if (account != appState->account())
            co_return;
        prepare(*appState, email);
        appState->presentCompose();
    } catch (const std::exception &) {
        // Nothing opens.
    }
}

void EmailListActions::deleteRow(qint64 uid) {
    launch(m_model->deleteOne(uid, requestFolder, m_appState->trashFolderPath()));
}

void EmailListActions::archive(qint64 uid) {
    move(uid, m_appState->archiveFolderPath());
}

void EmailListActions::move(qint64 uid, const QString &toFolder) {
    launch(m_model->moveOne(uid, requestFolder, toFolder));
}

void EmailListActions::markAsSpam(qint64 uid) {
    move(uid, m_appState->junkFolderPath());
}

void EmailListActions::markAsNotSpam(qint64 uid) {
    move(uid, inbox);
}

void EmailListActions::toggleRead(const EmailSummary &email) {
    launch(m_model->flagOne(email.uid, requestFolder, seen, !email.seen.value_or(false)));
}

void EmailListActions::toggleStar(const EmailSummary &email) {
    launch(m_model->flagOne(email.uid, requestFolder, flagged, !email.flagged.value_or(false)));
}

void EmailListActions::block(const EmailSummary &email, bool byDomain) {
    launch(blockOne(email, requestFolder, byDomain));
}

QCoro::Task<> EmailListActions::blockOne(EmailSummary email, QString folder, bool byDomain) {
    const auto self = shared_from_this();
    const auto pattern = co_await m_model->blockOne(email, folder, byDomain);
    spamToast = pattern ? ToastMessage(u"Blocked %1 — email permanently deleted"_s.arg(*pattern), ToastType::success)
                        : ToastMessage(u"Could not block sender"_s, ToastType::error);
}

void EmailListActions::viewSource(qint64 uid) {
    launch(readSource(uid, requestFolder));
}

QCoro::Task<> EmailListActions::readSource(qint64 uid, QString folder) {
    const auto self = shared_from_this();
    try {
        const auto source = co_await EmailService::getSource(uid, folder);
        rowSource = RowSourceItem{.source = source};
    } catch (const std::exception &) {
        // Nothing opens.
    }
}

void EmailListActions::noteSourceCopied() {
    copiedToast = ToastMessage(u"Source copied to clipboard"_s, ToastType::success);
}

void EmailListActions::archiveSelected() {
    moveSelected(m_appState->archiveFolderPath());
}

void EmailListActions::deleteSelected() {
    launch(m_model->bulkDelete(requestFolder, m_appState->trashFolderPath()));
}

void EmailListActions::moveSelected(const QString &toFolder) {
    launch(m_model->bulkMove(requestFolder, toFolder));
}

void EmailListActions::toggleSpamOfSelected() {
    moveSelected(isJunkFolder() ? inbox : m_appState->junkFolderPath());
}

void EmailListActions::blockSelected(bool byDomain) {
    launch(blockAll(requestFolder, byDomain));
}

QCoro::Task<> EmailListActions::blockAll(QString folder, bool byDomain) {
    const auto self = shared_from_this();
    const auto rules = co_await m_model->blockSelected(folder, byDomain);
    spamToast = rules > 0 ? ToastMessage(u"Blocked %1 rule(s) — selected email(s) permanently deleted"_s.arg(rules),
                                         ToastType::success)
                          : ToastMessage(u"Could not block senders"_s, ToastType::error);
}

bool EmailListActions::anySelectedLacks(std::optional<bool> EmailSummary::*flag) const {
    const auto lacks = [&](const EmailSummary &email) {
        return m_model->selectedEmails->contains(email.uid) && !(email.*flag).value_or(false);
    };
    return std::any_of(m_model->emails->begin(), m_model->emails->end(), lacks);
}

void EmailListActions::toggleReadOfSelected() {
    const bool anyUnread = anySelectedLacks(&EmailSummary::seen);
    launch(anyUnread ? m_model->bulkMarkRead(requestFolder) : m_model->bulkMarkUnread(requestFolder));
}

void EmailListActions::toggleFlagOfSelected() {
    launch(m_model->bulkFlag(requestFolder, anySelectedLacks(&EmailSummary::flagged)));
}

void EmailListActions::checkSpam() {
    if (isCheckingSpam)
        return;
    isCheckingSpam = true;
    launch(scan(requestFolder, m_appState->junkFolderPath()));
}

QCoro::Task<> EmailListActions::scan(QString folder, QString junkFolder) {
    const auto self = shared_from_this();
    const auto result = co_await scanForSpam(m_model, folder, junkFolder);
    spamToast = result;
    isCheckingSpam = false;
}
