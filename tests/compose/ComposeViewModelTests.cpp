#include "compose/ComposeViewModel.h"

#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QJsonDocument>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class ComposeTest : public CoreTest {
protected:
    ComposeTest() { server.makeCurrent(); }

    FakeExchange &expectSend() { return server.expect("POST", "/api/emails/send"); }
    void address() {
        message->to = u"b@c"_s;
        message->subject = u"S"_s;
    }

    FakeServer server;
    const std::shared_ptr<ComposeViewModel> message = std::make_shared<ComposeViewModel>();
};

EmailDetail letter() {
    return {.uid = 7,
            .subject = u"Lunch"_s,
            .from = std::vector{EmailAddress{.name = u"Ada"_s, .address = u"ada@a"_s}},
            .to = std::vector{EmailAddress{.email = u"me@a"_s}},
            .date = u"Mon, 2 Mar 2026 09:00:00 +0000"_s,
            .body_html = u"<p>Hi</p>"_s,
            .folder = u"INBOX"_s};
}

const QString replyHead =
    u"<br><br><div style=\"border-left:2px solid #ccc; padding-left:10px; margin-left:5px; color:#666;\">"
    "<p style=\"margin:0 0 8px 0;\">On "_s;
const QString forwardHead = u"<br><br><div style=\"border-top:1px solid #ccc; padding-top:10px; margin-top:10px;\"><p "
                            u"style=\"margin:0 0 8px 0; "
                            "color:#666;\"><b>---------- Forwarded message ----------</b><br>From: "_s;

std::vector<EmailAddress> addresses(const QStringList &texts) {
    std::vector<EmailAddress> all;
    for (const auto &text : texts)
        all.push_back({.address = text});
    return all;
}

struct ReplyAllRow {
    const char *name;
    std::vector<QString> own;
    QString sender;
    QStringList to, cc;
    QString kept;
};

class ReplyAll : public ComposeTest, public testing::WithParamInterface<ReplyAllRow> {};

const ReplyAllRow repliesToAll[] = {
    {"Others", {u"me@a"_s}, u"ada@a"_s, {u"me@a"_s, u"bob@b"_s}, {u"eve@e"_s}, u"bob@b, eve@e"_s},
    {"SenderInCc", {u"me@a"_s}, u"ada@a"_s, {u"me@a"_s}, {u"ADA@a"_s, u"bob@b"_s}, u"bob@b"_s},
    {"FirstSpellingStays", {}, u"ada@a"_s, {u"Bob@B"_s, u"bob@b"_s}, {u"BOB@B"_s}, u"Bob@B"_s},
    {"OnlyOwn", {u"me@a"_s, u"Too@A"_s}, u"ada@a"_s, {u"ME@a"_s}, {u"too@a"_s}, u""_s},
    {"OwnAddressesUnknown", {}, u"ada@a"_s, {u"me@a"_s}, {}, u"me@a"_s},
    {"NoAddress", {}, u"ada@a"_s, {u""_s, u"bob@b"_s}, {}, u"bob@b"_s},
};

struct QuotedBody {
    const char *name;
    std::optional<QString> html, text;
    QString quoted;
};

class QuotedBodies : public ComposeTest, public testing::WithParamInterface<QuotedBody> {};

const QuotedBody bodies[] = {
    {"HTML", u"<b>1</b>"_s, u"2"_s, u"<b>1</b>"_s},
    {"Text", std::nullopt, u"a\nb & <c>\r\n"_s, u"a<br>b & <c>\r<br>"_s},
    {"EmptyHTMLCounts", u""_s, u"2"_s, u""_s},
    {"Nothing", std::nullopt, std::nullopt, u""_s},
    {"PlaceMarkers", u"%1 %2"_s, std::nullopt, u"%1 %2"_s},
};

struct CarriedRow {
    const char *name;
    EmailAttachment attachment;
    std::optional<ForwardedAttachment> carried;
};

class CarriedAttachments : public ComposeTest, public testing::WithParamInterface<CarriedRow> {};

ForwardedAttachment carried(const QString &filename, qint64 size, const QString &type, const QString &part) {
    return {.id = QUuid(), .filename = filename, .size = size, .contentType = type, .ref = {u"INBOX"_s, 7, part}};
}

const CarriedRow carriedRows[] = {
    {"File",
     {.filename = u"a.pdf"_s, .contentType = u"x/y"_s, .type = u"application/pdf"_s, .size = 9, .partNum = u"1.2"_s},
     carried(u"a.pdf"_s, 9, u"application/pdf"_s, u"1.2"_s)},
    {"Nothing", {}, carried(u"attachment"_s, 0, u"application/octet-stream"_s, u"0"_s)},
    {"PartNumber",
     {.contentType = u" Text/Plain "_s, .part = 3},
     carried(u"attachment"_s, 0, u" Text/Plain "_s, u"3"_s)},
    {"InlineImage", {.type = u" IMAGE/png\n"_s, .cid = u"c1"_s}, std::nullopt},
    {"ImageWithBlankID",
     {.type = u"image/png"_s, .cid = u" \n"_s},
     carried(u"attachment"_s, 0, u"image/png"_s, u"0"_s)},
    {"DocumentWithID",
     {.type = u"application/pdf"_s, .cid = u"c"_s},
     carried(u"attachment"_s, 0, u"application/pdf"_s, u"0"_s)},
};

} // namespace

TEST_F(ComposeTest, AReplyQuotesTheMessageBelowWhoWroteIt) {
    message->cc = u"typed@t"_s;
    message->prepareReply(letter(), false);
    EXPECT_EQ(message->to.get(), u"ada@a"_s);
    EXPECT_EQ(message->subject.get(), u"Re: Lunch"_s);
    EXPECT_EQ(message->body.get(),
              replyHead + u"Mon, 2 Mar 2026 09:00:00 +0000, <b>Ada</b> wrote:</p><p>Hi</p></div>"_s);
    EXPECT_EQ(message->cc.get(), u"typed@t"_s);
    EXPECT_FALSE(message->showCc);
}

TEST_F(ComposeTest, AReplyToNobodyHasNoName) {
    for (const auto &from : {std::optional<std::vector<EmailAddress>>(), std::optional(std::vector<EmailAddress>())}) {
        auto email = letter();
        email.from = from;
        message->prepareReply(email, true);
        EXPECT_EQ(message->to.get(), u""_s);
        EXPECT_EQ(message->body.get(),
                  replyHead + u"Mon, 2 Mar 2026 09:00:00 +0000, <b></b> wrote:</p><p>Hi</p></div>"_s);
    }
}

TEST_F(ComposeTest, PrefixesAreAddedEveryTime) {
    auto email = letter();
    email.subject = u"Re: x"_s;
    message->prepareReply(email, false);
    EXPECT_EQ(message->subject.get(), u"Re: Re: x"_s);
    message->prepareForward(email);
    EXPECT_EQ(message->subject.get(), u"Fwd: Re: x"_s);
    email.subject = std::nullopt;
    message->prepareReply(email, false);
    EXPECT_EQ(message->subject.get(), u"Re: "_s);
}

TEST_P(ReplyAll, GoesToEverybodyElseOnce) {
    const auto &row = GetParam();
    message->fromAddresses = row.own;
    auto email = letter();
    email.from = addresses({row.sender});
    email.to = addresses(row.to);
    email.cc = addresses(row.cc);
    message->prepareReply(email, true);
    EXPECT_EQ(message->to.get(), row.sender);
    EXPECT_EQ(message->cc.get(), row.kept);
    EXPECT_EQ(message->showCc.get(), !row.kept.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(, ReplyAll, testing::ValuesIn(repliesToAll), rowName);

TEST_F(ComposeTest, TheChosenSenderIsNoRecipient) {
    message->fromAddress = u"Me@A"_s;
    message->prepareReply(letter(), true);
    EXPECT_EQ(message->cc.get(), u""_s);
}

TEST_P(QuotedBodies, GoInAsTheyAre) {
    auto email = letter();
    email.body_html = GetParam().html;
    email.body_text = GetParam().text;
    message->prepareReply(email, false);
    EXPECT_TRUE(message->body->endsWith(u" wrote:</p>"_s + GetParam().quoted + u"</div>"_s));
    message->prepareForward(email);
    EXPECT_TRUE(message->body->endsWith(u"me@a</p>"_s + GetParam().quoted + u"</div>"_s));
}

INSTANTIATE_TEST_SUITE_P(, QuotedBodies, testing::ValuesIn(bodies), rowName);

TEST_F(ComposeTest, AForwardBeginsWithTheHeader) {
    auto email = letter();
    email.to = std::vector{EmailAddress{.name = u"Me"_s, .address = u"x"_s, .email = u"me@a"_s},
                           EmailAddress{.name = u""_s, .address = u"bob@b"_s}};
    message->to = u"kept@k"_s;
    message->prepareForward(email);
    EXPECT_EQ(message->to.get(), u"kept@k"_s);
    EXPECT_EQ(message->body.get(), forwardHead + u"Ada <ada@a><br>Date: Mon, 2 Mar 2026 09:00:00 +0000<br>Subject: "
                                                 "Lunch<br>To: Me <me@a>, bob@b</p><p>Hi</p></div>"_s);
    message->prepareForward({.uid = 1});
    EXPECT_EQ(message->body.get(), forwardHead + u"<br>Date: <br>Subject: <br>To: </p></div>"_s);
}

TEST_P(CarriedAttachments, AreReferences) {
    auto email = letter();
    email.attachments = std::vector{GetParam().attachment};
    message->populateForwardedAttachments(email);
    auto files = message->forwardedAttachments.get();
    for (auto &file : files) {
        EXPECT_FALSE(file.id.isNull());
        file.id = QUuid();
    }
    const auto &expected = GetParam().carried;
    EXPECT_EQ(files, expected ? std::vector{*expected} : std::vector<ForwardedAttachment>());
}

INSTANTIATE_TEST_SUITE_P(, CarriedAttachments, testing::ValuesIn(carriedRows), rowName);

TEST_F(ComposeTest, CarriesNothingFromAMessageWithoutFolderOrAttachments) {
    auto email = letter();
    email.attachments = std::vector(2, EmailAttachment{.filename = u"f"_s});
    message->populateForwardedAttachments(email);
    ASSERT_EQ(message->forwardedAttachments->size(), 2);
    EXPECT_NE(message->forwardedAttachments->at(0).id, message->forwardedAttachments->at(1).id);
    email.folder = std::nullopt;
    email.attachments = std::vector(1, EmailAttachment());
    message->populateForwardedAttachments(email);
    email = letter();
    message->populateForwardedAttachments(email);
    email.attachments = std::vector<EmailAttachment>();
    message->populateForwardedAttachments(email);
    EXPECT_EQ(message->forwardedAttachments->size(), 2);
}

TEST_F(ComposeTest, TakesTheFirstSenderUnlessOneIsChosen) {
    const QByteArray two =
        R"({"addresses": [{"address": "a@a", "is_default": false}, {"address": "b@b", "is_default": true}]})";
    server.expect("GET", "/api/from-addresses").json(two);
    await(message->loadFromAddresses());
    EXPECT_THAT(message->fromAddresses.get(), ElementsAre(u"a@a"_s, u"b@b"_s));
    EXPECT_EQ(message->fromAddress.get(), u"a@a"_s);
    message->fromAddress = u"b@b"_s;
    server.expect("GET", "/api/from-addresses").json(two);
    await(message->loadFromAddresses());
    EXPECT_EQ(message->fromAddress.get(), u"b@b"_s);
}

TEST_F(ComposeTest, LetsTheServerChooseWhenTheAddressesDoNotCome) {
    for (const auto &bad : {R"({"addresses": [{}]})"_ba, "x"_ba}) {
        server.expect("GET", "/api/from-addresses").json(bad);
        await(message->loadFromAddresses());
    }
    server.expect("GET", "/api/from-addresses").answer(500);
    await(message->loadFromAddresses());
    server.expect("GET", "/api/from-addresses").json(R"({"addresses": []})");
    await(message->loadFromAddresses());
    EXPECT_TRUE(message->fromAddresses->empty());
    EXPECT_EQ(message->fromAddress.get(), u""_s);
    EXPECT_EQ(message->errorMessage.get(), std::nullopt);
}

TEST_F(ComposeTest, AttachmentsMayFillTheLimitButNotPassIt) {
    auto email = letter();
    email.attachments = std::vector{EmailAttachment{.size = attachmentsLimit - 10}};
    message->populateForwardedAttachments(email);
    message->errorMessage = u"earlier"_s;
    message->addAttachment(u"f"_s, QByteArray(10, 'x'), u"t"_s);
    EXPECT_EQ(message->attachments->size(), 1);
    EXPECT_EQ(message->errorMessage.get(), u"earlier"_s);
    message->addAttachment(u"g"_s, "x", u"t"_s);
    EXPECT_EQ(message->attachments->size(), 1);
    EXPECT_EQ(message->errorMessage.get(), u"Attachments must total 25 MB or less."_s);
    message->removeForwardedAttachment(message->forwardedAttachments->front().id);
    message->addAttachment(u"g"_s, "x", u"t"_s);
    message->addAttachment(u"h"_s, "", u"t"_s);
    message->removeAttachment(message->attachments->at(1).id);
    message->removeAttachment(QUuid::createUuid());
    EXPECT_TRUE(message->forwardedAttachments->empty());
    ASSERT_EQ(message->attachments->size(), 2);
    EXPECT_EQ(message->attachments->at(1).filename, u"h"_s);
}

TEST_F(ComposeTest, SendsEverythingInOneRequest) {
    auto email = letter();
    email.attachments =
        std::vector{EmailAttachment{.filename = u"old.pdf"_s, .type = u"application/pdf"_s, .partNum = u"2"_s}};
    message->populateForwardedAttachments(email);
    address();
    message->cc = u"c@c"_s;
    message->bcc = u"d@d"_s;
    message->body = u"<p>x</p>"_s;
    message->fromAddress = u"me@a"_s;
    message->addAttachment(u"new.bin"_s, "\xff\xfe\xfd\0"_ba, u"application/octet-stream"_s);
    auto &exchange = expectSend().json("{}");
    EXPECT_TRUE(await(message->send()));
    EXPECT_EQ(exchange.request().header("content-type"), "application/json");
    EXPECT_EQ(exchange.request().body,
              R"({"to":"b@c","subject":"S","body":"<p>x</p>","cc":"c@c","bcc":"d@d","attachments":[)"
              R"({"name":"old.pdf","type":"application/pdf","ref":{"folder":"INBOX","uid":7,"part":"2"}},)"
              R"({"name":"new.bin","data":"//79AA==","type":"application/octet-stream"}],"from_email":"me@a"})");
    EXPECT_EQ(message->attachments->size(), 1);
    EXPECT_EQ(message->body.get(), u"<p>x</p>"_s);
}

TEST_F(ComposeTest, AnEmptyMessageIsAnEmptyParagraph) {
    address();
    auto &exchange = expectSend().answer(204);
    EXPECT_TRUE(await(message->send()));
    EXPECT_EQ(exchange.request().body, R"({"to":"b@c","subject":"S","body":"<p></p>"})");
}

TEST_F(ComposeTest, TextReachesTheServerAsItIs) {
    const QString awkward = u"\\ \" ' \u2028 \U0001f600 %1 \r\n\t"_s + QChar(0) + QChar(0xd800) + u'x' + QChar(0xdfff);
    const QByteArray wire = "\\\\ \\\" ' \xe2\x80\xa8 \xf0\x9f\x98\x80 %1 \\r\\n\\t\\u0000\\ud800x\\udfff";
    address();
    message->subject = awkward;
    message->body = awkward + QString(1 << 20, u'y');
    auto &exchange = expectSend().json("{}");
    EXPECT_TRUE(await(message->send()));
    const auto expected =
        R"({"to":"b@c","subject":")" + wire + R"(","body":")" + wire + QByteArray(1 << 20, 'y') + "\"}";
    EXPECT_TRUE(exchange.request().body == expected);
}

TEST_F(ComposeTest, AsksForWhatIsMissingBeforeItSends) {
    message->errorMessage = u"earlier"_s;
    EXPECT_FALSE(await(message->send()));
    EXPECT_EQ(message->errorMessage.get(), u"Please enter a recipient"_s);
    message->to = u" "_s;
    EXPECT_FALSE(await(message->send()));
    EXPECT_EQ(message->errorMessage.get(), u"Please enter a subject"_s);
    server.assertSilence();
    message->subject = u" "_s;
    auto &exchange = expectSend().json("{}");
    EXPECT_TRUE(await(message->send()));
    EXPECT_EQ(exchange.request().body, R"({"to":" ","subject":" ","body":"<p></p>"})");
    EXPECT_EQ(message->errorMessage.get(), std::nullopt);
}

TEST_F(ComposeTest, SendsOnceWhenAskedTwice) {
    address();
    auto &exchange = expectSend().held();
    auto first = message->send();
    EXPECT_TRUE(message->isSending);
    message->errorMessage = u"kept"_s;
    EXPECT_FALSE(await(message->send()));
    EXPECT_EQ(message->errorMessage.get(), u"kept"_s);
    exchange.sendHead(200, "application/json", "Content-Length: 0\r\n");
    EXPECT_TRUE(await(std::move(first)));
    EXPECT_FALSE(message->isSending);
    EXPECT_EQ(exchange.arrivals(), 1);
}

TEST_F(ComposeTest, KeepsEverythingWhenSendingFailsAndSendsAgain) {
    struct Row {
        std::function<void(FakeExchange &)> fail;
        QString error;
    };
    const Row table[] = {
        {[](auto &exchange) { exchange.json(R"({"message": "Mailbox of b@c is full"})", 507); },
         u"Mailbox of b@c is full"_s},
        {[](auto &exchange) { exchange.answer(502, "<html>", "text/html"); }, u"Request failed (502)"_s},
        {[](auto &exchange) { exchange.answer(401); }, u"Session expired. Please log in again."_s},
        {[](auto &exchange) { exchange.closing(); }, u"The network connection was lost."_s},
        {[](auto &exchange) { exchange.raw("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n{").closing(); },
         u"The network connection was lost."_s},
    };
    address();
    message->body = u"text"_s;
    message->addAttachment(u"f"_s, QByteArray(300000, 'x'), u"t"_s);
    for (const auto &row : table) {
        row.fail(expectSend());
        EXPECT_FALSE(await(message->send()));
        EXPECT_EQ(message->errorMessage.get(), row.error);
        EXPECT_FALSE(message->isSending);
    }
    server.vanish();
    EXPECT_FALSE(await(message->send()));
    EXPECT_EQ(message->errorMessage.get(), u"Could not connect to the server."_s);
    server.returnAgain();
    auto &last = expectSend().json("{}");
    EXPECT_TRUE(await(message->send()));
    EXPECT_EQ(last.request().body, R"({"to":"b@c","subject":"S","body":"text","attachments":[{"name":"f","data":")" +
                                       QByteArray(300000, 'x').toBase64() + R"(","type":"t"}]})");
}
