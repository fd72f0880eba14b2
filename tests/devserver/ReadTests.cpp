#include "ServerTest.h"

namespace {

using ReadTest = ServerTest;

TEST_F(ReadTest, OpeningAMessageMarksItSeenOnDiskAndOnlyThat) {
    deliver("1.a", "Subject: one\n\nText\n");
    deliver("2.b:2,F", "Subject: two\n\nText\n", "cur");
    start();
    signIn();
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX").at("total"), 2);
    EXPECT_EQ(files(), (std::vector<std::string>{"cur/2.b:2,F", "new/1.a"}));
    EXPECT_EQ(getJSON("api/emails/read/1?folder=INBOX").at("seen"), true);
    EXPECT_EQ(files(), (std::vector<std::string>{"cur/1.a:2,S", "cur/2.b:2,F"}));
    EXPECT_EQ(getJSON("api/emails/read/2?folder=INBOX").at("flagged"), true);
    EXPECT_EQ(files(), (std::vector<std::string>{"cur/1.a:2,S", "cur/2.b:2,FS"}));
}

TEST_F(ReadTest, TheSourceIsTheWholeMessageAndMarksNothing) {
    deliver("1.a", "Subject: caf\xE9\n\r\nText \xE2\x82\xAC\n");
    start();
    signIn();
    EXPECT_EQ(get("api/emails/source/1?folder=INBOX")->body,
              "{\"source\":\"Subject: caf\u00e9\\r\\n\\r\\nText \u00e2\u201a\u00ac\\r\\n\"}");
    EXPECT_EQ(files(), std::vector<std::string>{"new/1.a"});
}

TEST_F(ReadTest, ADetailHasTheFieldsAndKindsThatTheClientDecodes) {
    deliver("1.a:2,FR",
            "From: \"Osei, Kwame\" <kwame@h.example>\n"
            "To: =?utf-8?q?Zo=C3=AB?= <zoe@h.example>, plain@h.example\n"
            "Cc: Team: a@h.example, b@h.example;\n"
            "Subject: =?iso-8859-1?q?Gr=FC=DFe?=\n"
            "Date: Tue, 03 Nov 2026 10:00:00 +0100\n"
            "Message-ID: <1@h.example>\nIn-Reply-To: <0@h.example>\n\nHello\n",
            "cur");
    start();
    signIn();
    const auto expected = nlohmann::json::parse(R"({
        "uid":1,"subject":"Grüße","folder":"INBOX",
        "from":[{"name":"Osei, Kwame","address":"kwame@h.example"}],
        "to":[{"name":"Zoë","address":"zoe@h.example"},{"name":"","address":"plain@h.example"}],
        "cc":[{"name":"","address":"a@h.example"},{"name":"","address":"b@h.example"}],
        "date":"Tue, 03 Nov 2026 10:00:00 +0100","timestamp":1793696400.0,
        "seen":true,"flagged":true,"answered":true,"body_text":"Hello\n","attachments":[],
        "size":266,"message_id":"<1@h.example>","in_reply_to":"<0@h.example>"})");
    EXPECT_EQ(getJSON("api/emails/read/1?folder=INBOX"), expected);
}

TEST_F(ReadTest, ImagesOfTheBodyStandInItAndOthersStayAttachments) {
    deliver("1.a", "Content-Type: multipart/related; boundary=b\n\n"
                   "--b\nContent-Type: text/html\n\n<img src=\"cid:logo%40x\"><img src='cid:missing'>\n"
                   "--b\nContent-Type: image/png\nContent-ID: <logo@x>\nContent-Transfer-Encoding: base64\n\nAAEC\n"
                   "--b\nContent-Type: image/png; name=other.png\nContent-ID: <unused@x>\n"
                   "Content-Transfer-Encoding: base64\n\nAAEC\n--b--\n");
    start();
    signIn();
    const auto detail = getJSON("api/emails/read/1?folder=INBOX");
    EXPECT_EQ(detail.at("body_html"), "<img src=\"data:image/png;base64,AAEC\"><img src='cid:missing'>");
    EXPECT_FALSE(detail.contains("body_text"));
    const auto expected = nlohmann::json::parse(R"([
        {"filename":"attachment","contentType":"image/png","size":3,"partNum":"2","part":2,"cid":"logo@x"},
        {"filename":"other.png","contentType":"image/png","size":3,"partNum":"3","part":3}])");
    EXPECT_EQ(detail.at("attachments"), expected);
}

TEST_F(ReadTest, AlternativesFillBothBodiesAndPartsOfAMixtureFollowEachOther) {
    deliver("1.a",
            "Content-Type: multipart/mixed; boundary=o\n\n--o\n"
            "Content-Type: multipart/alternative; boundary=i\n\n--i\nContent-Type: text/plain\n\nplain\n--i\n"
            "Content-Type: text/html\n\n<b>rich</b>\n--i--\n--o\nContent-Type: text/plain\n\n<list footer>\n--o--\n");
    start();
    signIn();
    const auto detail = getJSON("api/emails/read/1?folder=INBOX");
    EXPECT_EQ(detail.at("body_text"), "plain\n<list footer>");
    EXPECT_EQ(detail.at("body_html"), "<b>rich</b><pre>&lt;list footer&gt;</pre>");
}

struct BodyCase {
    const char *name;
    std::string message;
    std::string subject;
    std::string text;
};

std::vector<BodyCase> bodyCases() {
    const std::string replacement = "\xEF\xBF\xBD";
    return {
        {"empty file", "", "", ""},
        {"no header at all", "\n\nonly text\n", "", "\nonly text\n"},
        {"no blank line", "Subject: s", "s", ""},
        {"unknown charset with UTF-8", "Subject: s\nContent-Type: text/plain; charset=x-klingon\n\ncafé\n", "s",
         "café\n"},
        {"unknown charset with other bytes", "Subject: s\nContent-Type: text/plain; charset=x-klingon\n\ncaf\xE9\n",
         "s", "café\n"},
        {"no charset with other bytes", "Subject: s\n\ncaf\xE9 \x80\n", "s", "café €\n"},
        {"UTF-8 with broken bytes", "Content-Type: text/plain; charset=utf-8\n\na\xFF\xC3(b\n", "",
         "a" + replacement + replacement + "(b\n"},
        {"NUL bytes", "Content-Type: text/plain; charset=utf-8\n\na" + std::string(1, '\0') + "b\n", "",
         "a" + replacement + "b\n"},
        {"Shift_JIS", "Content-Type: text/plain; charset=shift_jis\n\n\x93\xFA\x96\x7B\n", "", "日本\n"},
        {"UTF-16", "Content-Type: text/plain; charset=utf-16be\nContent-Transfer-Encoding: base64\n\nAGEAYg==\n", "",
         "ab"},
        {"broken base64", "Content-Transfer-Encoding: base64\n\naGVs*bG8=!!\n", "", "hello"},
        {"unknown transfer encoding", "Content-Transfer-Encoding: x-none\n\nhello\n", "", "hello\n"},
        {"raw bytes in the subject", "Subject: caf\xE9\n\n", "café", ""},
        {"broken encoded word", "Subject: =?utf-8?q?=FF=FE?= =?nonsense?x?y?=\n\n", "", ""},
        {"line breaks inside an encoded word", "Subject: =?utf-8?q?a=0D=0ABcc:_x?=\n\n", "a Bcc: x", ""},
        {"unclosed boundary", "Content-Type: multipart/mixed; boundary=b\n\n--b\n\nfirst\n", "", "first\n"},
        {"boundary that never comes", "Content-Type: multipart/mixed; boundary=b\n\nnothing\n", "", ""},
        {"boundary missing", "Content-Type: multipart/mixed\n\n--b\n\nfirst\n--b--\n", "", ""},
        {"nonsense content type", "Content-Type: ;;;=\n\nhello\n", "", "hello\n"},
        {"multipart inside itself",
         "Content-Type: multipart/mixed; boundary=b\n\n--b\n"
         "Content-Type: multipart/mixed; boundary=b\n\n--b\n\nin\n--b--\n--b--\n",
         "", "in"},
    };
}

TEST_F(ReadTest, MalformedMessagesGiveWhatCanBeReadOfThem) {
    int number = 0;
    for (const auto &test : bodyCases())
        deliver(std::to_string(1000 + ++number) + ".x", test.message);
    start();
    signIn();
    number = 0;
    for (const auto &test : bodyCases()) {
        const auto detail = getJSON("api/emails/read/" + std::to_string(++number) + "?folder=INBOX");
        ASSERT_TRUE(detail.is_object()) << test.name;
        EXPECT_EQ(detail.value("body_text", ""), test.text) << test.name;
        EXPECT_TRUE(test.subject.empty() || detail.at("subject") == test.subject) << test.name << detail.at("subject");
    }
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX&per_page=100").at("emails").size(), bodyCases().size());
}

TEST_F(ReadTest, NestingWithoutEndAndThousandsOfPartsAreSurvived) {
    std::string nested, wide = "Content-Type: multipart/mixed; boundary=b\n\n";
    for (int depth = 0; depth < 2000; ++depth)
        nested += "Content-Type: multipart/mixed; boundary=b" + std::to_string(depth) + "\n\n--b" +
                  std::to_string(depth) + "\n";
    for (int part = 0; part < 20000; ++part)
        wide += "--b\nContent-Type: application/x\n\nx\n";
    deliver("1001.nested", nested);
    deliver("1002.wide", wide);
    std::string groups = "To: ";
    for (int group = 0; group < 50000; ++group)
        groups += "a:";
    deliver("1003.good", "Subject: good\n\nText\n");
    deliver("1004.groups", groups + "\n\nText\n");
    start();
    signIn();
    EXPECT_EQ(get("api/emails/read/1?folder=INBOX")->status, 200);
    EXPECT_EQ(getJSON("api/emails/read/2?folder=INBOX").at("attachments").size(), 20000U);
    EXPECT_EQ(getJSON("api/emails/read/3?folder=INBOX").at("subject"), "good");
    EXPECT_EQ(getJSON("api/emails/read/4?folder=INBOX").at("body_text"), "Text\n");
}

TEST_F(ReadTest, UnknownMessagesAndFoldersAreNotFound) {
    deliverSeen(1);
    std::filesystem::create_directories(m_folder.path() / "secret/cur");
    std::filesystem::create_directories(m_folder.path() / "secret/new");
    start();
    signIn();
    for (const char *query : {"read/2?folder=INBOX", "read/1?folder=Nowhere", "read/1?folder=../secret",
                              "read/1?folder=..%2Fsecret", "read/1?folder=.", "read/1?folder=", "list?folder=../secret",
                              "source/1?folder=%00", "notification-state?folder=/etc"}) {
        const auto answer = get(std::string("api/emails/") + query);
        ASSERT_TRUE(answer) << query;
        EXPECT_EQ(answer->status, 404) << query;
        EXPECT_TRUE(nlohmann::json::parse(answer->body).at("message").is_string()) << query;
    }
    EXPECT_EQ(get("api/emails/read/one?folder=INBOX")->status, 400);
    EXPECT_EQ(get("api/emails/read/1")->status, 400);
}

} // namespace
