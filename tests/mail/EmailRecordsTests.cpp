#include "mail/EmailRecords.h"
#include "mail/FolderRecords.h"

#include "net/JSONText.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

/// A field of a record, with JSON of a kind that it must refuse.
struct WrongKindRow {
    const char *name;
    QByteArray json;
    QString expectedError;
};

template <typename Record> QString decodingError(const QByteArray &json) {
    try {
        decodeJSONText<Record>(json);
    } catch (const DecodingError &error) {
        return error.description();
    }
    return {};
}

QByteArray listWith(const QByteArray &field) {
    return R"({"emails": [{"uid": 1}, {"uid": 2, )" + field + R"(}], "total": 2, "page": 1, "pages": 1})";
}

class WrongKind : public testing::TestWithParam<WrongKindRow> {};

const WrongKindRow wrongKinds[] = {
    {"uid", R"("uid": "2")", u"emails[1].uid: expected a number"_s},
    {"uidFraction", R"("uid": 2.5)", u"emails[1].uid: expected a whole number"_s},
    {"uidNull", R"("uid": null)", u"emails[1].uid: expected a number"_s},
    {"subject", R"("subject": 1)", u"emails[1].subject: expected a text"_s},
    {"from", R"("from": [])", u"emails[1].from: expected a text"_s},
    {"to", R"("to": {})", u"emails[1].to: expected a text"_s},
    {"date", R"("date": 1700000000)", u"emails[1].date: expected a text"_s},
    {"timestamp", R"("timestamp": "1")", u"emails[1].timestamp: expected a number"_s},
    {"seen", R"("seen": 1)", u"emails[1].seen: expected true or false"_s},
    {"flagged", R"("flagged": "true")", u"emails[1].flagged: expected true or false"_s},
    {"answered", R"("answered": 0)", u"emails[1].answered: expected true or false"_s},
    {"has_attachment", R"("has_attachment": "")", u"emails[1].has_attachment: expected true or false"_s},
    {"size", R"("size": "12")", u"emails[1].size: expected a number"_s},
    {"message_id", R"("message_id": 1)", u"emails[1].message_id: expected a text"_s},
    {"in_reply_to", R"("in_reply_to": false)", u"emails[1].in_reply_to: expected a text"_s},
    {"body_text", R"("body_text": 1)", u"emails[1].body_text: expected a text"_s},
};

struct NameRow {
    const char *name;
    std::optional<QString> header;
    QString senderName, recipientName, address;
};

class HeaderNames : public testing::TestWithParam<NameRow> {};

const NameRow names[] = {
    {"Unset", {}, u"Unknown"_s, u"Unknown"_s, {}},
    {"Empty", u""_s, {}, {}, {}},
    {"Quoted", u" \"Lovelace, Ada\" <ada@example.org>"_s, u"Lovelace, Ada"_s, u"Lovelace, Ada"_s, u"ada@example.org"_s},
    {"BareAddress", u"ada@example.org"_s, u"ada@example.org"_s, u"ada@example.org"_s, u"ada@example.org"_s},
    {"BareAddressWithText", u"to ada@example.org, x"_s, u"to ada@example.org, x"_s, u"ada@example.org"_s,
     u"ada@example.org"_s},
    {"NoAddress", u"undisclosed"_s, u"undisclosed"_s, u"undisclosed"_s, u"undisclosed"_s},
    {"OnlyBrackets", u"<a.b+c-d@sub.example.org>"_s, {}, {}, u"a.b+c-d@sub.example.org"_s},
    {"Letters", u"Jörg <jörg@münchen.example>"_s, u"Jörg"_s, u"Jörg"_s, u"jörg@münchen.example"_s},
    {"FirstOfSeveral", u"A <a@x.org>, B <b@y.org>"_s, u"A"_s, u"A"_s, u"a@x.org"_s},
};

struct PartRow {
    const char *name;
    EmailAttachment attachment;
    qint64 partNumber;
    QString queryValue, id;
};

class AttachmentParts : public testing::TestWithParam<PartRow> {};

const PartRow parts[] = {
    {"Nothing", {}, 0, u"0"_s, u"0_"_s},
    {"Dotted", {.filename = u"a.txt"_s, .partNum = u"1.2"_s}, 0, u"1.2"_s, u"1.2_a.txt"_s},
    {"DottedWithPart", {.partNum = u"1.2"_s, .part = 4}, 4, u"1.2"_s, u"1.2_"_s},
    {"Number", {.partNum = u"3"_s, .part = 4}, 3, u"3"_s, u"3_"_s},
    {"Signed", {.partNum = u"+3"_s}, 3, u"+3"_s, u"+3_"_s},
    {"EmptyText", {.partNum = u""_s, .part = 4}, 4, u""_s, u"_"_s},
    {"OnlyPart", {.filename = u"b"_s, .part = 4}, 4, u"4"_s, u"0_b"_s},
};

struct AddressRow {
    const char *name;
    EmailAddress address;
    QString displayName, headerText;
};

class Addresses : public testing::TestWithParam<AddressRow> {};

const AddressRow addresses[] = {
    {"Nothing", {}, {}, {}},
    {"EmailWins", {.address = u"a@x"_s, .email = u"e@x"_s}, u"e@x"_s, u"e@x"_s},
    {"AddressAlone", {.name = u""_s, .address = u"a@x"_s}, u"a@x"_s, u"a@x"_s},
    {"Named", {.name = u"Ada"_s, .address = u"a@x"_s}, u"Ada"_s, u"Ada <a@x>"_s},
    {"NameAlone", {.name = u"Ada"_s}, u"Ada"_s, u"Ada <>"_s},
};

} // namespace

TEST_P(WrongKind, FailsTheWholeListWithItsPlace) {
    EXPECT_EQ(decodingError<EmailListResponse>(listWith(GetParam().json)), GetParam().expectedError);
}

INSTANTIATE_TEST_SUITE_P(, WrongKind, testing::ValuesIn(wrongKinds), rowName);

TEST(EmailListResponse, ReadsEveryFieldOfASummary) {
    const auto list = decodeJSONText<EmailListResponse>(listWith(
        R"("subject": "S", "from": "F", "to": "T", "date": "D", "timestamp": 1.5, "seen": true, "flagged": false,
           "answered": true, "has_attachment": true, "size": 12.0, "message_id": "M", "in_reply_to": "I",
           "body_text": "B", "unknown": 1)"));
    const EmailSummary expected{2,     u"S"_s, u"F"_s, u"T"_s, u"D"_s, 1.5,    true,
                                false, true,   true,   12,     u"M"_s, u"I"_s, u"B"_s};
    EXPECT_EQ(list.emails.at(1), expected);
    EXPECT_EQ(list.emails.at(0), EmailSummary{.uid = 1});
    EXPECT_EQ(list.folder, std::nullopt);
}

TEST(EmailListResponse, NeedsItsCounts) {
    EXPECT_EQ(decodingError<EmailListResponse>(R"({"emails": [], "total": 0, "page": 1})"),
              u"pages: expected a number"_s);
    EXPECT_EQ(decodingError<EmailListResponse>(R"({"emails": [], "page": 1, "pages": 1})"),
              u"total: expected a number"_s);
    EXPECT_EQ(decodingError<EmailListResponse>(R"({"total": 0, "page": 1, "pages": 1})"), u"emails: expected a list"_s);
}

TEST(EmailDetail, ReadsEveryField) {
    const auto email = decodeJSONText<EmailDetail>(R"({
        "uid": 3, "subject": "S", "from": [{"name": "N", "address": "A", "email": "E"}], "to": [{}], "cc": [],
        "date": "D", "timestamp": 2, "seen": false, "flagged": true, "answered": null, "body_html": "<p>",
        "body_text": "p", "attachments": [{"filename": "f", "contentType": "c", "type": "t", "size": 1,
        "partNum": "2", "part": 3, "cid": "i"}], "size": 4, "message_id": "M", "in_reply_to": "I", "folder": "INBOX"})");
    const EmailDetail expected{.uid = 3,
                               .subject = u"S"_s,
                               .from = std::vector{EmailAddress{u"N"_s, u"A"_s, u"E"_s}},
                               .to = std::vector{EmailAddress()},
                               .cc = std::vector<EmailAddress>(),
                               .date = u"D"_s,
                               .timestamp = 2,
                               .seen = false,
                               .flagged = true,
                               .body_html = u"<p>"_s,
                               .body_text = u"p"_s,
                               .attachments =
                                   std::vector{EmailAttachment{u"f"_s, u"c"_s, u"t"_s, 1, u"2"_s, 3, u"i"_s}},
                               .size = 4,
                               .message_id = u"M"_s,
                               .in_reply_to = u"I"_s,
                               .folder = u"INBOX"_s};
    EXPECT_EQ(email, expected);
}

TEST(EmailSendRequest, WritesItsOwnKeys) {
    const EmailSendRequest request{
        .to = u"a@b"_s,
        .subject = u"S"_s,
        .body = u"B"_s,
        .attachments =
            std::vector{AttachmentData{.filename = u"f"_s, .content = "A"_ba, .contentType = u"t"_s},
                        AttachmentData{
                            .filename = u"g"_s, .contentType = u"t"_s, .ref = AttachmentRef{u"INBOX"_s, 4, u"1.2"_s}}},
        .from_email = u"me@b"_s};
    EXPECT_EQ(encodeJSONText(request),
              R"({"to":"a@b","subject":"S","body":"B","attachments":[{"name":"f","data":"QQ==","type":"t"},)"
              R"({"name":"g","type":"t","ref":{"folder":"INBOX","uid":4,"part":"1.2"}}],"from_email":"me@b"})");
}

TEST(MailFolder, NeedsPathAndNameOnly) {
    EXPECT_EQ(decodeJSONText<MailFolder>(R"({"path": "P", "name": "N"})"),
              (MailFolder{.path = u"P"_s, .name = u"N"_s}));
    EXPECT_EQ(decodingError<FolderListResponse>(R"({"folders": [{"path": "P"}]})"),
              u"folders[0].name: expected a text"_s);
    EXPECT_EQ(decodingError<MailFolder>(R"({"path": "P", "name": "N", "unseen": "1"})"),
              u"unseen: expected a number"_s);
}

TEST_P(HeaderNames, AreWhatAPersonKnows) {
    const auto &row = GetParam();
    const EmailSummary email{.from = row.header, .to = row.header};
    EXPECT_EQ(email.senderName(), row.senderName);
    EXPECT_EQ(email.recipientName(), row.recipientName);
    EXPECT_EQ(email.senderAddress(), row.address);
    EXPECT_EQ(email.recipientAddress(), row.address);
}

INSTANTIATE_TEST_SUITE_P(, HeaderNames, testing::ValuesIn(names), rowName);

TEST_P(AttachmentParts, AreNamedForTheServer) {
    const auto &row = GetParam();
    EXPECT_EQ(row.attachment.partNumber(), row.partNumber);
    EXPECT_EQ(row.attachment.partQueryValue(), row.queryValue);
    EXPECT_EQ(row.attachment.id(), row.id);
}

INSTANTIATE_TEST_SUITE_P(, AttachmentParts, testing::ValuesIn(parts), rowName);

TEST(EmailAttachment, KnowsItsTypeBySeveralNames) {
    EXPECT_EQ((EmailAttachment{.contentType = u"c"_s, .type = u"t"_s}).mimeType(), u"t"_s);
    EXPECT_EQ((EmailAttachment{.contentType = u"c"_s}).mimeType(), u"c"_s);
    EXPECT_EQ(EmailAttachment().mimeType(), u"application/octet-stream"_s);
}

TEST_P(Addresses, ReadAsNameAndHeader) {
    EXPECT_EQ(GetParam().address.displayName(), GetParam().displayName);
    EXPECT_EQ(GetParam().address.headerText(), GetParam().headerText);
}

INSTANTIATE_TEST_SUITE_P(, Addresses, testing::ValuesIn(addresses), rowName);

TEST(AddressDomain, IsWhatFollowsTheFirstAt) {
    EXPECT_EQ(addressDomain(u"a@b@c"_s), u"b@c"_s);
    EXPECT_EQ(addressDomain(u"nobody"_s), QString());
}
