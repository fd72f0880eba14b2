#pragma once

#include "support/FakeServer.h"

#include <QByteArrayList>
#include <vector>

/// The JSON of a page whose messages have nothing but a uid.
inline QByteArray emptyEmails(const std::vector<qint64> &uids) {
    QByteArrayList emails;
    for (const auto uid : uids)
        emails.append("{\"uid\": " + QByteArray::number(uid) + "}");
    return emails.join(", ");
}

/// `emails` is the JSON of the messages.
inline QByteArray pageJSON(const QByteArray &emails, int total = 2, int pages = 1) {
    return "{\"emails\": [" + emails + "], \"total\": " + QByteArray::number(total) +
           ", \"page\": 1, \"pages\": " + QByteArray::number(pages) + "}";
}

inline QByteArray stateJSON(const QByteArray &folder, const QByteArray &unreadUIDs, int unseen, int version = 1) {
    return R"({"folder": ")" + folder + R"(", "total": 9, "unseen": )" + QByteArray::number(unseen) +
           R"(, "unread_uids": [)" + unreadUIDs + R"(], "uid_validity": "V", "uid_next": 99, "account_id": "A", )" +
           R"("version": )" + QByteArray::number(version) + "}";
}

/// Answers a held request.
inline void answerHeld(FakeExchange &exchange, const QByteArray &json) {
    exchange.sendHead(200, "application/json", "Content-Length: " + QByteArray::number(json.size()) + "\r\n");
    exchange.send(json);
}
