#include "SendServerTest.h"

#include "accounts/Secrets.h"

namespace {

using nlohmann::json;

class SendTest : public SendServerTest {
protected:
    SendTest() {
        deliver("1.a", storedMail, "new");
        start();
        signIn();
    }

    /// With files of which one holds no valid text of any kind.
    inline static const std::string storedMail =
        "From: a@b.example\nSubject: Files\nContent-Type: multipart/mixed; boundary=m\n\n"
        "--m\nContent-Type: text/plain\n\nText\n"
        "--m\nContent-Type: application/pdf; name=x.pdf\nContent-Transfer-Encoding: base64\n\nAAEC/w0KAA==\n"
        "--m\nContent-Type: text/plain; charset=iso-8859-1\nContent-Disposition: attachment; filename=l.txt\n"
        "Content-Transfer-Encoding: quoted-printable\n\n=E4\n--m--\n";

    static json reference(const std::string &folder, int uid, const std::string &part) {
        return {{"name", "lent.pdf"},
                {"type", "application/pdf"},
                {"ref", {{"folder", folder}, {"uid", uid}, {"part", part}}}};
    }
};

TEST_F(SendTest, BothSeeTheMessageArriveAndItsFilesAreWhole) {
    signIn("ilias");
    const auto recipientEvents = openEvents();
    signIn();
    const auto senderEvents = openEvents();
    sendWell(mail());
    const auto arrival = recipientEvents->waitFor("new_emails");
    EXPECT_EQ(arrival.at("count"), 1);
    EXPECT_EQ(arrival.at("latest").at(0).at("subject"), "Hello");
    EXPECT_EQ(arrival.at("latest").at(0).at("folder"), "INBOX");
    senderEvents->waitFor("emails_changed", [](const json &data) { return data.at("folder") == "Sent"; });
    EXPECT_TRUE(sentCopy().string().ends_with(":2,S"));
    EXPECT_EQ(contentOf(sentCopy()), contentOf(delivered()));
    EXPECT_EQ(filesIn(m_recipient / "tmp").size() + filesIn(m_maildir / ".Sent/tmp").size(), 0U);
    const auto sent = getJSON("api/emails/list?folder=Sent").at("emails").at(0);
    EXPECT_EQ(sent.at("seen"), true);
    EXPECT_EQ(sent.at("to"), "ilias@corvanite.example");
    signIn("ilias");
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX").at("emails").at(0).at("seen"), false);
}

TEST_F(SendTest, TheAnswerComesAfterBothFoldersShowTheMessage) {
    for (int count = 1; count <= 5; ++count) {
        sendWell(mail());
        EXPECT_EQ(getJSON("api/emails/list?folder=Sent").at("total"), count);
    }
}

TEST_F(SendTest, ACopyThatNobodyKnowsOfIsNamedNowhere) {
    auto request = mail();
    request["to"] = "tides@corvanite.example";
    request["bcc"] = "Ilias <ilias@corvanite.example>";
    sendWell(request);
    for (const auto &file : {delivered(), sentCopy()}) {
        EXPECT_EQ(contentOf(file).find("lias"), std::string::npos);
        EXPECT_EQ(contentOf(file).find("cc:"), std::string::npos);
    }
}

TEST_F(SendTest, WhoIsNamedTwiceGetsOneCopy) {
    auto request = mail();
    request["to"] = "D.Okafor@Corvanite.example, dana@corvanite.example, ilias@corvanite.example";
    request["cc"] = "Dana <DANA@corvanite.example>, ilias@corvanite.example";
    sendWell(request);
    EXPECT_EQ(filesIn(m_maildir / "new").size(), 2U);
    EXPECT_EQ(filesIn(m_recipient / "new").size(), 1U);
}

TEST_F(SendTest, RegisteredAccountsWriteToEachOther) {
    EXPECT_EQ(postStatus("api/auth/register", R"({"username":"ines","password":"secret7","full_name":"Ines Duarte",
        "email":"ines@corvanite.example"})"),
              200);
    signIn("ines", "secret7");
    sendWell(mail());
    EXPECT_EQ(parsed(delivered()).at("from"), people({{"Ines Duarte", "ines@corvanite.example"}}));
    signIn("ilias");
    auto answer = mail();
    answer["to"] = "ines@corvanite.example";
    sendWell(answer);
    EXPECT_EQ(filesIn(m_folder.path() / "state/mail/ines/new").size(), 1U);
    EXPECT_EQ(postStatus("api/auth/register", R"({"username":"thief","password":"secret7","full_name":"T",
        "email":"tides@corvanite.example"})"),
              409);
}

TEST_F(SendTest, OnlyOwnAddressesCanBeWrittenFrom) {
    EXPECT_EQ(get("api/from-addresses")->body,
              R"({"addresses":[{"address":"dana@corvanite.example","is_default":true},)"
              R"({"address":"d.okafor@corvanite.example","is_default":false},)"
              R"({"address":"tides@corvanite.example","is_default":false}]})");
    auto request = mail();
    request["from_email"] = "ilias@corvanite.example";
    EXPECT_EQ(refusal(request, 403), "Your account cannot send mail from ilias@corvanite.example");
    request["from_email"] = "tides@corvanite.example";
    request["from_display_name"] = "Open tides";
    sendWell(request);
    EXPECT_EQ(parsed(delivered()).at("from"), people({{"Open tides", "tides@corvanite.example"}}));
}

TEST_F(SendTest, LentFilesAreCopiedByteForByte) {
    auto request = mail();
    request["attachments"] = {reference("INBOX", 1, "2"), reference("INBOX", 1, "3")};
    sendWell(request);
    const auto parts = parsed(delivered()).at("parts");
    EXPECT_EQ(parts.at(4).at("filename"), "lent.pdf");
    EXPECT_EQ(parts.at(4).at("sha256"), sha256Hex(std::string("\0\1\2\xFF\r\n\0", 7)));
    EXPECT_EQ(parts.at(5).at("sha256"), sha256Hex("\xE4"));
}

TEST_F(SendTest, AFileThatIsGoneKeepsTheMessageFromGoing) {
    const std::vector<std::pair<json, std::string>> cases{
        {reference("INBOX", 7, "2"), "\"lent.pdf\" cannot be attached: There is no message 7 in \"INBOX\""},
        {reference("Elsewhere", 1, "2"), "\"lent.pdf\" cannot be attached: There is no folder \"Elsewhere\""},
        {reference("INBOX", 1, "9"), "\"lent.pdf\" cannot be attached: The message has no part 9"},
    };
    for (const auto &[missing, text] : cases) {
        auto request = mail();
        request["attachments"] = {reference("INBOX", 1, "2"), missing};
        EXPECT_EQ(refusal(request, 404), text);
    }
    signIn("ilias");
    auto request = mail();
    request["attachments"] = {reference("INBOX", 1, "2")};
    EXPECT_EQ(send(request)->status, 404) << "somebody else's message";
}

TEST_F(SendTest, RecipientsThatCannotBeReachedAreNamed) {
    const struct {
        const char *to, *cc;
        int status;
        const char *text;
    } cases[] = {
        {"ilias@corvanite.example, nobody", "", 400, "\"nobody\" is not a mail address"},
        {"ilias@corvanite.example", "Bob <bob@>", 400, "\"bob@\" is not a mail address"},
        {" , ;", "", 400, "The message has no recipient"},
        {"ilias@corvanite.example, a@b.example", "nobody@corvanite.example", 422,
         "Nothing was sent: this server has no account a@b.example, nobody@corvanite.example and knows no mail server "
         "to hand it to"},
    };
    for (const auto &[to, cc, status, text] : cases) {
        auto request = mail();
        request["to"] = to;
        request["cc"] = cc;
        EXPECT_EQ(refusal(request, status), text);
    }
}

TEST_F(SendTest, RequestsOfAWrongFormAreRefused) {
    const std::pair<const char *, const char *> cases[] = {
        {R"({"to":7})", "to must be a text"},
        {R"({"subject":null})", "subject must be a text"},
        {R"({"body":["x"]})", "body must be a text"},
        {R"({"cc":1})", "cc must be a text"},
        {R"({"from_email":"x"})", "\"x\" is not a mail address"},
        {R"({"attachments":{}})", "attachments must be a list"},
        {R"({"attachments":[7]})", "An attachment's name must be a text"},
        {R"({"attachments":[{"name":"a","type":"b/c"}]})", "An attachment's data must be a text"},
        {R"({"attachments":[{"name":"a","type":"b/c","data":"QQ="}]})", "The data of \"a\" is no Base64"},
        {R"({"attachments":[{"name":"a","type":"b/c","data":"Q===" }]})", "The data of \"a\" is no Base64"},
        {R"({"attachments":[{"name":"a","type":"b/c","data":"QQ==QQ=="}]})", "The data of \"a\" is no Base64"},
        {R"({"attachments":[{"name":"a","type":"b/c","data":"Q-_="}]})", "The data of \"a\" is no Base64"},
        {R"({"attachments":[{"name":"a","type":"b/c","data":" QQ=="}]})", "The data of \"a\" is no Base64"},
        {R"({"attachments":[{"name":"a","type":"b/c","ref":{"folder":"INBOX","uid":"1","part":"2"}}]})",
         "\"a\" cannot be attached: An attachment's uid must be an integer"},
    };
    for (const auto &[change, text] : cases) {
        auto request = mail();
        request.update(json::parse(change));
        EXPECT_EQ(refusal(request, 400), text) << change;
    }
}

TEST_F(SendTest, FilesMayTotalTwentyFiveMegabytes) {
    constexpr std::size_t limit = 26214400;
    const std::string most(limit - 7, 'x');
    auto request = mail();
    // The lent file has seven bytes.
    request["attachments"] = {reference("INBOX", 1, "2"),
                              {{"name", "big"}, {"type", "application/octet-stream"}, {"data", base64(most + "y")}}};
    EXPECT_EQ(refusal(request, 413), "Attachments must total 25 MB or less.");
    request["attachments"][1]["data"] = base64(most);
    sendWell(request);
    const auto message = parsed(delivered());
    EXPECT_EQ(message.at("parts").back().at("sha256"), sha256Hex(most));
    EXPECT_EQ(message.at("defects"), json::array());
}

TEST_F(SendTest, WhatTheRecipientHasBlockedIsSentButNeverShown) {
    signIn("ilias");
    EXPECT_EQ(postStatus("api/blocked/add", R"({"type":"sender","pattern":"dana@corvanite.example"})"), 200);
    signIn();
    sendWell(mail());
    EXPECT_EQ(filesIn(m_recipient / "new").size(), 0U);
    EXPECT_FALSE(contentOf(sentCopy()).empty());
}

TEST_F(SendTest, AFolderForSentMailThatHasAnotherNameIsUsed) {
    EXPECT_EQ(postStatus("api/folders/create", R"({"name":"Sent Items"})"), 200);
    sendWell(mail());
    EXPECT_EQ(filesIn(m_maildir / ".Sent Items/cur").size(), 1U);
    EXPECT_FALSE(std::filesystem::exists(m_maildir / ".Sent"));
}

TEST_F(SendTest, TheDemoAccountHasASignature) {
    const auto user = getJSON("api/auth/me").at("user");
    EXPECT_EQ(user.at("signature").get<std::string>().rfind("<b>Dana Okafor</b><br>", 0), 0U);
    EXPECT_EQ(user.at("reply_forward_attachments"), true);
    EXPECT_EQ(user.at("ai_provider"), "builtin");
    EXPECT_EQ(user.at("has_ai_key"), true);
}

} // namespace
