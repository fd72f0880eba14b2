#pragma once

#include "net/JSONRecord.h"

/// What the server tells of one mailbox for the sake of notifications and badges.
struct MailboxNotificationState {
    QString folder;
    qint64 total = 0, unseen = 0;
    std::vector<qint64> unread_uids;
    /// Changes when the server renumbers the mailbox.
    QString uid_validity;
    qint64 uid_next = 0;
    QString account_id;
    /// Rises with each change; a higher one is newer.
    double version = 0;

    bool operator==(const MailboxNotificationState &) const = default;

    bool isUnread(qint64 uid) const;
    /// Names one generation of the mailbox on the current server: a renumbered one has a scope of its own.
    QString mailboxScope() const;
};

template <>
inline constexpr auto jsonFields<MailboxNotificationState> = jsonRecord(
    jsonField("folder", &MailboxNotificationState::folder), jsonField("total", &MailboxNotificationState::total),
    jsonField("unseen", &MailboxNotificationState::unseen),
    jsonField("unread_uids", &MailboxNotificationState::unread_uids),
    jsonField("uid_validity", &MailboxNotificationState::uid_validity),
    jsonField("uid_next", &MailboxNotificationState::uid_next),
    jsonField("account_id", &MailboxNotificationState::account_id),
    jsonField("version", &MailboxNotificationState::version));
