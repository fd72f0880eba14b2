#pragma once

#include "notify/MailboxNotificationState.h"
#include "platform/NotificationCenter.h"
#include "platform/ObservableObject.h"

/// Keeps notifications and the dock badge in step with the server. Main thread only; nothing here fails.
class NotificationService : public ObservableObject {
    Q_OBJECT
public:
    static NotificationService &shared();

    /// Where notifications are shown; null until the desktop has one.
    NotificationCenter *notificationCenter = nullptr;
    /// The text on the program's icon; empty for none.
    Published<QString> dockBadgeLabel{this};

    /// The last state of each mailbox, by folder path.
    const std::map<QString, MailboxNotificationState> &mailboxStates() const { return m_mailboxStates; }

    /// Remembers the state, unless a newer one is known, and removes the notifications that it makes stale.
    QCoro::Task<> applyMailboxState(MailboxNotificationState state);
    /// Removes the notifications of these messages and never raises them again.
    QCoro::Task<> dismissNotifications(QString folder, std::vector<qint64> uids);
    /// `count` is the inbox's number of unread messages; the badge shows it, or that of all folders.
    void setBadge(qint64 count);
    void resetBadges();
    /// Forgets every mailbox and removes all notifications, at sign-out.
    void forgetMailboxes();

private:
    NotificationService() = default;

    bool isCurrent(const MailboxNotificationState &state) const;
    bool isOutdated(const MailboxNotificationState &state) const;
    void rememberDismissed(const QString &folder, const std::vector<qint64> &uids);
    QCoro::Task<std::vector<NotificationRequest>> allRequests();
    void remove(const QStringList &identifiers);

    std::map<QString, MailboxNotificationState> m_mailboxStates;
};
