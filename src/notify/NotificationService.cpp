#include "notify/NotificationService.h"

#include "platform/UserDefaults.h"

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype maximumDismissed = 1000;
constexpr qint64 maximumBadge = 9999;

/// The mail that a notification is about; its uid is 0 when it is about something else.
struct NotifiedMail {
    qint64 uid = 0;
    QString folder;

    explicit NotifiedMail(const QJsonObject &userInfo)
        : uid(userInfo.value("type"_L1) == "email"_L1 ? userInfo.value("uid"_L1).toInteger() : 0)
        , folder(userInfo.value("folder"_L1).toString(u"INBOX"_s)) {}
};

bool differs(const QJsonValue &value, const QString &expected) {
    return !value.isUndefined() && value != expected;
}

bool isStale(const QJsonObject &userInfo, const MailboxNotificationState &state) {
    const NotifiedMail mail(userInfo);
    if (mail.uid < 1)
        return false;
    if (differs(userInfo.value("accountID"_L1), state.account_id))
        return true;
    if (mail.folder != state.folder)
        return false;
    return differs(userInfo.value("mailboxScope"_L1), state.mailboxScope()) || !state.isUnread(mail.uid);
}

template <typename Condition>
QStringList identifiers(const std::vector<NotificationRequest> &requests, Condition condition) {
    QStringList found;
    for (const auto &request : requests)
        if (condition(request.userInfo))
            found.append(request.identifier);
    return found;
}

QString dismissedKey(const QString &scope) {
    return u"dismissedNotifications:"_s + scope;
}

std::set<qint64> dismissedUIDs(const QString &scope) {
    std::set<qint64> uids;
    const auto stored = UserDefaults::standard().value(dismissedKey(scope)).value_or(QJsonValue());
    for (const auto uid : stored.toArray())
        uids.insert(uid.toInteger());
    return uids;
}

QString badgeText(qint64 number) {
    if (number < 1)
        return {};
    return number > maximumBadge ? u"9999+"_s : QString::number(number);
}

} // namespace

NotificationService &NotificationService::shared() {
    static NotificationService service;
    return service;
}

QCoro::Task<> NotificationService::applyMailboxState(MailboxNotificationState state) {
    if (isOutdated(state))
        co_return;
    m_mailboxStates[state.folder] = state;
    const auto requests = co_await allRequests();
    // A newer state that came in meanwhile does the rest itself.
    if (!isCurrent(state))
        co_return;
    remove(identifiers(requests, [&](const QJsonObject &userInfo) { return isStale(userInfo, state); }));
    if (state.folder.toUpper() == "INBOX"_L1)
        setBadge(state.unseen);
}

bool NotificationService::isOutdated(const MailboxNotificationState &state) const {
    const auto known = m_mailboxStates.find(state.folder);
    return known != m_mailboxStates.end() && known->second.account_id == state.account_id &&
           state.version < known->second.version;
}

bool NotificationService::isCurrent(const MailboxNotificationState &state) const {
    const auto known = m_mailboxStates.find(state.folder);
    return known != m_mailboxStates.end() && known->second.version == state.version;
}

QCoro::Task<> NotificationService::dismissNotifications(QString folder, std::vector<qint64> uids) {
    if (uids.empty())
        co_return;
    rememberDismissed(folder, uids);
    const auto requests = co_await allRequests();
    remove(identifiers(requests, [&](const QJsonObject &userInfo) {
        const NotifiedMail mail(userInfo);
        const bool isMail = userInfo.value("type"_L1) == "email"_L1;
        return isMail && mail.folder == folder && std::find(uids.begin(), uids.end(), mail.uid) != uids.end();
    }));
}

void NotificationService::rememberDismissed(const QString &folder, const std::vector<qint64> &uids) {
    const auto known = m_mailboxStates.find(folder);
    if (known == m_mailboxStates.end())
        return;
    const auto scope = known->second.mailboxScope();
    auto dismissed = dismissedUIDs(scope);
    dismissed.insert(uids.begin(), uids.end());
    QJsonArray highest;
    auto uid = dismissed.begin();
    std::advance(uid, std::max<qsizetype>(0, qsizetype(dismissed.size()) - maximumDismissed));
    std::copy(uid, dismissed.end(), std::back_inserter(highest));
    UserDefaults::standard().set(dismissedKey(scope), highest);
}

QCoro::Task<std::vector<NotificationRequest>> NotificationService::allRequests() {
    if (!notificationCenter)
        co_return {};
    auto requests = co_await notificationCenter->getDeliveredNotifications();
    const auto pending = co_await notificationCenter->getPendingNotificationRequests();
    requests.insert(requests.end(), pending.begin(), pending.end());
    co_return requests;
}

void NotificationService::remove(const QStringList &identifiers) {
    if (identifiers.isEmpty())
        return;
    notificationCenter->removeDeliveredNotifications(identifiers);
    notificationCenter->removePendingNotificationRequests(identifiers);
}

void NotificationService::setBadge(qint64 count) {
    auto &defaults = UserDefaults::standard();
    const auto unread = std::max<qint64>(0, count);
    defaults.set(u"badgeCount"_s, unread);
    const bool countsAllFolders = defaults.text(u"dockBadgeMode"_s) == u"all"_s;
    const auto number = countsAllFolders ? defaults.integer(u"allFoldersUnreadCount"_s).value_or(0) : unread;
    const bool isEnabled = defaults.flag(u"badgeEnabled"_s).value_or(true);
    dockBadgeLabel = isEnabled ? badgeText(number) : QString();
}

void NotificationService::resetBadges() {
    UserDefaults::standard().set(u"badgeCount"_s, QJsonValue(0));
    UserDefaults::standard().set(u"allFoldersUnreadCount"_s, QJsonValue(0));
    dockBadgeLabel = QString();
}

void NotificationService::forgetMailboxes() {
    m_mailboxStates.clear();
    if (notificationCenter)
        notificationCenter->removeAllNotifications();
}
