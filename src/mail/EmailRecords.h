#pragma once

#include "net/JSONRecord.h"

/// One message in a list.
struct EmailSummary {
    qint64 uid = 0;
    std::optional<QString> subject;
    /// Raw headers, such as a name followed by an address in angle brackets.
    std::optional<QString> from, to;
    /// In one of the forms that `parseEmailDate` reads.
    std::optional<QString> date;
    std::optional<double> timestamp;
    std::optional<bool> seen, flagged, answered, has_attachment;
    std::optional<qint64> size;
    std::optional<QString> message_id, in_reply_to;
    /// The plain-text start of the body.
    std::optional<QString> body_text;

    bool operator==(const EmailSummary &) const = default;

    /// The first address in `from`, else the whole of it.
    QString senderAddress() const;
    QString recipientAddress() const;
    QString senderName() const;
    QString recipientName() const;
};

/// The server fills either `address` or `email`; where both are set, `email` wins.
struct EmailAddress {
    std::optional<QString> name, address, email;

    bool operator==(const EmailAddress &) const = default;

    /// The address itself; empty when there is none.
    QString plainAddress() const;
    QString displayName() const;
    /// As in a header: the name, then the address in angle brackets.
    QString headerText() const;
};

/// `contentType` and `type` are two spellings of one thing, as are `partNum` and `part`.
struct EmailAttachment {
    std::optional<QString> filename, contentType, type;
    std::optional<qint64> size;
    std::optional<QString> partNum;
    std::optional<qint64> part;
    std::optional<QString> cid;

    bool operator==(const EmailAttachment &) const = default;

    QString id() const;
    QString mimeType() const;
    /// Such a picture belongs into the body.
    bool isInlineImage() const;
    qint64 partNumber() const;
    QString partQueryValue() const;
};

/// One whole message.
struct EmailDetail {
    qint64 uid = 0;
    std::optional<QString> subject;
    std::optional<std::vector<EmailAddress>> from, to, cc;
    std::optional<QString> date;
    std::optional<double> timestamp;
    std::optional<bool> seen, flagged, answered;
    std::optional<QString> body_html, body_text;
    std::optional<std::vector<EmailAttachment>> attachments;
    std::optional<qint64> size;
    std::optional<QString> message_id, in_reply_to;
    /// The folder that the server read it from.
    std::optional<QString> folder;

    bool operator==(const EmailDetail &) const = default;
};

struct EmailListResponse {
    std::vector<EmailSummary> emails;
    /// Messages in the whole folder that match the query.
    qint64 total = 0;
    qint64 page = 0, pages = 0;
    std::optional<QString> folder;
};

/// The raw text of a message.
struct EmailSourceResponse {
    QString source;
};

/// An attachment that lies on the server already, so that forwarding need not upload it again.
struct AttachmentRef {
    QString folder;
    qint64 uid = 0;
    QString part;

    bool operator==(const AttachmentRef &) const = default;
};

/// One attachment of an outgoing message.
struct AttachmentData {
    QString filename;
    /// The file; goes over the wire in Base64.
    std::optional<QByteArray> content;
    QString contentType;
    std::optional<AttachmentRef> ref;

    bool operator==(const AttachmentData &) const = default;
};

struct EmailSendRequest {
    QString to, subject, body;
    std::optional<QString> cc, bcc, reply_to;
    std::optional<std::vector<AttachmentData>> attachments;
    std::optional<QString> from_email, from_display_name;

    bool operator==(const EmailSendRequest &) const = default;
};

/// The text behind the first "@"; empty when there is none.
QString addressDomain(const QString &address);

template <>
inline constexpr auto jsonFields<EmailSummary> = jsonRecord(
    jsonField("uid", &EmailSummary::uid), jsonField("subject", &EmailSummary::subject),
    jsonField("from", &EmailSummary::from), jsonField("to", &EmailSummary::to), jsonField("date", &EmailSummary::date),
    jsonField("timestamp", &EmailSummary::timestamp), jsonField("seen", &EmailSummary::seen),
    jsonField("flagged", &EmailSummary::flagged), jsonField("answered", &EmailSummary::answered),
    jsonField("has_attachment", &EmailSummary::has_attachment), jsonField("size", &EmailSummary::size),
    jsonField("message_id", &EmailSummary::message_id), jsonField("in_reply_to", &EmailSummary::in_reply_to),
    jsonField("body_text", &EmailSummary::body_text));

template <>
inline constexpr auto jsonFields<EmailAddress> = jsonRecord(jsonField("name", &EmailAddress::name),
                                                            jsonField("address", &EmailAddress::address),
                                                            jsonField("email", &EmailAddress::email));

template <>
inline constexpr auto jsonFields<EmailAttachment> = jsonRecord(jsonField("filename", &EmailAttachment::filename),
                                                               jsonField("contentType", &EmailAttachment::contentType),
                                                               jsonField("type", &EmailAttachment::type),
                                                               jsonField("size", &EmailAttachment::size),
                                                               jsonField("partNum", &EmailAttachment::partNum),
                                                               jsonField("part", &EmailAttachment::part),
                                                               jsonField("cid", &EmailAttachment::cid));

template <>
inline constexpr auto jsonFields<EmailDetail> = jsonRecord(
    jsonField("uid", &EmailDetail::uid), jsonField("subject", &EmailDetail::subject),
    jsonField("from", &EmailDetail::from), jsonField("to", &EmailDetail::to), jsonField("cc", &EmailDetail::cc),
    jsonField("date", &EmailDetail::date), jsonField("timestamp", &EmailDetail::timestamp),
    jsonField("seen", &EmailDetail::seen), jsonField("flagged", &EmailDetail::flagged),
    jsonField("answered", &EmailDetail::answered), jsonField("body_html", &EmailDetail::body_html),
    jsonField("body_text", &EmailDetail::body_text), jsonField("attachments", &EmailDetail::attachments),
    jsonField("size", &EmailDetail::size), jsonField("message_id", &EmailDetail::message_id),
    jsonField("in_reply_to", &EmailDetail::in_reply_to), jsonField("folder", &EmailDetail::folder));

template <>
inline constexpr auto jsonFields<EmailListResponse> = jsonRecord(jsonField("emails", &EmailListResponse::emails),
                                                                 jsonField("total", &EmailListResponse::total),
                                                                 jsonField("page", &EmailListResponse::page),
                                                                 jsonField("pages", &EmailListResponse::pages),
                                                                 jsonField("folder", &EmailListResponse::folder));

template <>
inline constexpr auto jsonFields<EmailSourceResponse> = jsonRecord(jsonField("source", &EmailSourceResponse::source));

template <>
inline constexpr auto jsonFields<AttachmentRef> = jsonRecord(jsonField("folder", &AttachmentRef::folder),
                                                             jsonField("uid", &AttachmentRef::uid),
                                                             jsonField("part", &AttachmentRef::part));

template <>
inline constexpr auto jsonFields<AttachmentData> = jsonRecord(jsonField("name", &AttachmentData::filename),
                                                              jsonField("data", &AttachmentData::content),
                                                              jsonField("type", &AttachmentData::contentType),
                                                              jsonField("ref", &AttachmentData::ref));

template <>
inline constexpr auto jsonFields<EmailSendRequest> = jsonRecord(
    jsonField("to", &EmailSendRequest::to), jsonField("subject", &EmailSendRequest::subject),
    jsonField("body", &EmailSendRequest::body), jsonField("cc", &EmailSendRequest::cc),
    jsonField("bcc", &EmailSendRequest::bcc), jsonField("reply_to", &EmailSendRequest::reply_to),
    jsonField("attachments", &EmailSendRequest::attachments), jsonField("from_email", &EmailSendRequest::from_email),
    jsonField("from_display_name", &EmailSendRequest::from_display_name));
