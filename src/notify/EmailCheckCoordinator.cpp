#include "notify/EmailCheckCoordinator.h"

#include "chat/ChatUnreadResponse.h"
#include "mail/FolderService.h"
#include "notify/NotificationService.h"
#include "platform/UserDefaults.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 checkedMessages = 100;

/// Remembers the highest uid of the mailbox that has been looked at.
void moveCursor(const MailboxNotificationState &state, const std::vector<EmailSummary> &emails) {
    auto &defaults = UserDefaults::standard();
    const auto key = u"notificationCursor:"_s + state.mailboxScope();
    auto cursor = defaults.integer(key).value_or(0);
    for (const auto &email : emails)
        cursor = std::max(cursor, email.uid);
    defaults.set(key, QJsonValue(cursor));
}

qint64 unseenInAll(const std::vector<MailFolder> &folders) {
    qint64 sum = 0;
    for (const auto &folder : folders)
        sum += std::max<qint64>(0, folder.unseen.value_or(0));
    return sum;
}

} // namespace

EmailCheckCoordinator &EmailCheckCoordinator::shared() {
    static EmailCheckCoordinator coordinator;
    return coordinator;
}

QCoro::Task<> EmailCheckCoordinator::check(bool deliver) {
    if (m_checking) {
        m_refreshAgain = true;
        m_deliverAgain = m_deliverAgain || deliver;
        co_return;
    }
    m_checking = true;
    co_await runPass(deliver);
    if (std::exchange(m_refreshAgain, false))
        co_await runPass(std::exchange(m_deliverAgain, false));
    m_checking = false;
}

QCoro::Task<> EmailCheckCoordinator::runPass(bool) {
    co_await checkMail();
    co_await checkChat();
}

QCoro::Task<> EmailCheckCoordinator::checkMail() {
    try {
        const EmailQuery query{.folder = u"INBOX"_s, .perPage = checkedMessages};
        const auto list = co_await EmailService::listEmails(query);
        const auto state = co_await EmailService::notificationState(u"INBOX"_s);
        co_await NotificationService::shared().applyMailboxState(state);
        moveCursor(state, list.emails);
        co_await updateAllFoldersCount(state.unseen);
    } catch (const std::exception &) {
        // The next check tries again.
    }
}

QCoro::Task<> EmailCheckCoordinator::updateAllFoldersCount(qint64 inboxUnseen) {
    auto &defaults = UserDefaults::standard();
    if (defaults.text(u"dockBadgeMode"_s) != u"all"_s)
        co_return;
    const auto folders = co_await FolderService::listFolders();
    if (folders.empty())
        co_return;
    defaults.set(u"allFoldersUnreadCount"_s, QJsonValue(unseenInAll(folders)));
    NotificationService::shared().setBadge(inboxUnseen);
}

QCoro::Task<> EmailCheckCoordinator::checkChat() {
    try {
        const auto response = co_await APIClient::shared().get<ChatUnreadResponse>(u"api/chat/unread"_s);
        UserDefaults::standard().set(u"lastChatUnreadCounts"_s, encodeJSON(response.unread));
    } catch (const std::exception &) {
        // The counts of the last check stay.
    }
}
