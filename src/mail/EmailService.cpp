#include "mail/EmailService.h"

#include "notify/NotificationService.h"
#include "platform/Tasks.h"

using namespace Qt::StringLiterals;

namespace {

APIClient::Query pageQuery(const QString &folder, qint64 page, qint64 perPage) {
    return {{u"folder"_s, folder}, {u"page"_s, QString::number(page)}, {u"per_page"_s, QString::number(perPage)}};
}

APIClient::Query listQuery(const EmailQuery &wanted) {
    auto query = pageQuery(wanted.folder, wanted.page, wanted.perPage);
    if (!wanted.search.isEmpty())
        query[u"search"_s] = wanted.search;
    if (wanted.hasAttachment)
        query[u"has_attachment"_s] = u"1"_s;
    if (wanted.lastDays > 0)
        query[u"last_days"_s] = QString::number(wanted.lastDays);
    if (wanted.flaggedOnly)
        query[u"flagged"_s] = u"1"_s;
    if (wanted.dateFrom)
        query[u"date_from"_s] = *wanted.dateFrom;
    if (wanted.dateTo)
        query[u"date_to"_s] = *wanted.dateTo;
    return query;
}

QString messagePath(const QString &path, qint64 uid) {
    return path + QString::number(uid);
}

} // namespace

QCoro::Task<EmailListResponse> EmailService::listEmails(EmailQuery query) {
    return APIClient::shared().get<EmailListResponse>(u"api/emails/list"_s, listQuery(query));
}

QCoro::Task<EmailListResponse> EmailService::cachedEmails(QString folder, qint64 page, qint64 perPage) {
    return APIClient::shared().get<EmailListResponse>(u"api/emails/cached"_s, pageQuery(folder, page, perPage));
}

QCoro::Task<EmailDetail> EmailService::getEmail(qint64 uid, QString folder) {
    const APIClient::Query query{{u"folder"_s, folder}};
    auto email = co_await APIClient::shared().get<EmailDetail>(messagePath(u"api/emails/read/"_s, uid), query);
    // A person who waits for the message does not wait for the badge.
    launch(cleanUpNotifications(folder, std::vector(1, uid)));
    co_return std::move(email);
}

QCoro::Task<QString> EmailService::getSource(qint64 uid, QString folder) {
    const APIClient::Query query{{u"folder"_s, folder}};
    auto response =
        co_await APIClient::shared().get<EmailSourceResponse>(messagePath(u"api/emails/source/"_s, uid), query);
    co_return std::move(response.source);
}

QCoro::Task<> EmailService::moveEmail(qint64 uid, QString fromFolder, QString toFolder) {
    return change(u"api/emails/move"_s, {{u"uid"_s, uid}, {u"from_folder"_s, fromFolder}, {u"to_folder"_s, toFolder}},
                  fromFolder, {uid});
}

QCoro::Task<> EmailService::bulkMoveEmails(std::vector<qint64> uids, QString fromFolder, QString toFolder) {
    return change(u"api/emails/bulk-move"_s,
                  {{u"uids"_s, encodeJSON(uids)}, {u"from_folder"_s, fromFolder}, {u"to_folder"_s, toFolder}},
                  fromFolder, {});
}

QCoro::Task<> EmailService::deleteEmail(qint64 uid, QString folder, bool permanent, QString toFolder) {
    return change(u"api/emails/delete"_s,
                  {{u"uid"_s, uid}, {u"folder"_s, folder}, {u"permanent"_s, permanent}, {u"to_folder"_s, toFolder}},
                  folder, {uid});
}

QCoro::Task<> EmailService::bulkDeleteEmails(std::vector<qint64> uids, QString folder, bool permanent,
                                             QString toFolder) {
    return change(
        u"api/emails/bulk-delete"_s,
        {{u"uids"_s, encodeJSON(uids)}, {u"folder"_s, folder}, {u"permanent"_s, permanent}, {u"to_folder"_s, toFolder}},
        folder, {});
}

QCoro::Task<> EmailService::setFlag(qint64 uid, QString folder, QString flag, bool set) {
    const auto name = flag.remove(u'\\').toLower();
    const QJsonObject body{{u"uid"_s, uid}, {u"folder"_s, folder}, {u"flag"_s, name}, {u"set"_s, set}};
    if (name == "seen"_L1)
        return change(u"api/emails/flag"_s, body, folder, set ? std::vector{uid} : std::vector<qint64>());
    return APIClient::shared().postJSON(u"api/emails/flag"_s, body);
}

QCoro::Task<> EmailService::bulkSetFlag(std::vector<qint64> uids, QString folder, QString flag, bool set) {
    return change(u"api/emails/bulk-flag"_s,
                  {{u"uids"_s, encodeJSON(uids)}, {u"folder"_s, folder}, {u"flag"_s, flag}, {u"set"_s, set}}, folder,
                  {});
}

QCoro::Task<QByteArray> EmailService::downloadAttachment(qint64 uid, QString folder, EmailAttachment attachment,
                                                         DownloadProgress progress) {
    return fetch(u"api/emails/attachment"_s,
                 {{u"uid"_s, QString::number(uid)},
                  {u"folder"_s, folder},
                  {u"part"_s, attachment.partQueryValue()},
                  {u"filename"_s, attachment.filename.value_or(u"file"_s)}},
                 std::move(progress));
}

QCoro::Task<QByteArray> EmailService::downloadAttachmentsZip(qint64 uid, QString folder, DownloadProgress progress) {
    return fetch(u"api/emails/attachments/zip"_s,
                 {{u"uid"_s, QString::number(uid)},
                  {u"folder"_s, folder},
                  {u"name"_s, u"attachments_"_s + QString::number(uid)}},
                 std::move(progress));
}

QCoro::Task<MailboxNotificationState> EmailService::notificationState(QString folder) {
    return APIClient::shared().get<MailboxNotificationState>(u"api/emails/notification-state"_s,
                                                             {{u"folder"_s, folder}});
}

QCoro::Task<> EmailService::change(QString path, QJsonObject body, QString folder, std::vector<qint64> uids) {
    co_await APIClient::shared().postJSON(path, body);
    co_await cleanUpNotifications(folder, uids);
}

QCoro::Task<> EmailService::cleanUpNotifications(QString folder, std::vector<qint64> uids) {
    co_await NotificationService::shared().dismissNotifications(folder, uids);
    try {
        const auto state = co_await notificationState(folder);
        co_await NotificationService::shared().applyMailboxState(state);
    } catch (const std::exception &) {
        // The change itself has succeeded; the next check brings the count.
    }
}

QCoro::Task<QByteArray> EmailService::fetch(QString path, APIClient::Query query, DownloadProgress progress) {
    if (progress)
        return APIClient::shared().download(std::move(path), std::move(query), std::move(progress));
    return APIClient::shared().getData(std::move(path), std::move(query));
}
