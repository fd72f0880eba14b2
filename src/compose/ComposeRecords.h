#pragma once

#include "mail/EmailRecords.h"

#include <QUuid>

/// The most that the attachments of one message may weigh together, in bytes.
inline constexpr qint64 attachmentsLimit = qint64(25) << 20;

/// A file that the program holds.
struct ComposeAttachment {
    QUuid id = QUuid::createUuid();
    QString filename;
    QByteArray data;
    QString contentType;

    bool operator==(const ComposeAttachment &) const = default;
};

/// An attachment of another message, carried by reference: the server copies its bytes when the message is sent.
struct ForwardedAttachment {
    QUuid id = QUuid::createUuid();
    QString filename;
    /// Bytes; 0 when the server gave none.
    qint64 size = 0;
    QString contentType;
    AttachmentRef ref;

    bool operator==(const ForwardedAttachment &) const = default;
};

struct FromAddr {
    QString address;
    std::optional<bool> is_default;
};
template <>
inline constexpr auto jsonFields<FromAddr> = jsonRecord(jsonField("address", &FromAddr::address),
                                                        jsonField("is_default", &FromAddr::is_default));

/// The addresses that the account may send from.
struct FromResp {
    std::vector<FromAddr> addresses;
};
template <> inline constexpr auto jsonFields<FromResp> = jsonRecord(jsonField("addresses", &FromResp::addresses));
