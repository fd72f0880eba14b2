#pragma once

#include "mail/EmailRecords.h"
#include "net/APIClient.h"
#include "notify/MailboxNotificationState.h"

/// Which page of which list is asked for; filters that stand at their defaults are not in force.
struct EmailQuery {
    QString folder;
    qint64 page = 1, perPage = 50;
    QString search;
    bool hasAttachment = false;
    /// 0 for any time.
    qint64 lastDays = 0;
    bool flaggedOnly = false;
    /// "yyyy-MM-dd".
    std::optional<QString> dateFrom, dateTo;
};

/// The mail endpoints. Holds nothing; each operation fails as `APIClient` does. Operations that change what is unread
/// also bring notifications and badges up to date, without ever failing for it.
class EmailService {
public:
    static QCoro::Task<EmailListResponse> listEmails(EmailQuery query);
    /// The page as the server last saw it; may be empty.
    static QCoro::Task<EmailListResponse> cachedEmails(QString folder, qint64 page, qint64 perPage);
    /// The server marks the message as read.
    static QCoro::Task<EmailDetail> getEmail(qint64 uid, QString folder);
    static QCoro::Task<QString> getSource(qint64 uid, QString folder);

    static QCoro::Task<> moveEmail(qint64 uid, QString fromFolder, QString toFolder);
    static QCoro::Task<> bulkMoveEmails(std::vector<qint64> uids, QString fromFolder, QString toFolder);
    /// Moves the message to `toFolder`, or removes it for good when `permanent`.
    static QCoro::Task<> deleteEmail(qint64 uid, QString folder, bool permanent, QString toFolder);
    static QCoro::Task<> bulkDeleteEmails(std::vector<qint64> uids, QString folder, bool permanent, QString toFolder);
    /// `flag` may be written with a leading backslash and in any letter case.
    static QCoro::Task<> setFlag(qint64 uid, QString folder, QString flag, bool set);
    /// `flag` is "seen" or "flagged".
    static QCoro::Task<> bulkSetFlag(std::vector<qint64> uids, QString folder, QString flag, bool set);

    /// `progress` may be absent.
    static QCoro::Task<QByteArray> downloadAttachment(qint64 uid, QString folder, EmailAttachment attachment,
                                                      DownloadProgress progress = {});
    /// All attachments of a message in one ZIP file.
    static QCoro::Task<QByteArray> downloadAttachmentsZip(qint64 uid, QString folder, DownloadProgress progress = {});
    static QCoro::Task<MailboxNotificationState> notificationState(QString folder);

private:
    /// Posts a change to `folder`; once it is made, forgets the notifications of `uids`.
    static QCoro::Task<> change(QString path, QJsonObject body, QString folder, std::vector<qint64> uids);
    static QCoro::Task<> cleanUpNotifications(QString folder, std::vector<qint64> uids);
    static QCoro::Task<QByteArray> fetch(QString path, APIClient::Query query, DownloadProgress progress);
};
