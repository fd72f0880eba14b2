#include "notify/MailboxNotificationState.h"

#include "net/ServerAddress.h"

#include <algorithm>

bool MailboxNotificationState::isUnread(qint64 uid) const {
    return std::find(unread_uids.begin(), unread_uids.end(), uid) != unread_uids.end();
}

QString MailboxNotificationState::mailboxScope() const {
    return QStringList{currentServerAddress(), account_id, uid_validity, folder}.join(u'|');
}
