#include "ServerTest.h"

namespace {

class ListTest : public ServerTest {
protected:
    void deliverDated(const std::string &name, const std::string &date, const std::string &rest = "\nText\n") {
        deliver(name, "Date: " + date + "\n" + rest, "cur");
    }
};

using UIDs = std::vector<std::int64_t>;

TEST_F(ListTest, ARowHasTheFieldsAndKindsThatTheClientDecodes) {
    deliver("1.a", "From: =?utf-8?q?Zo=C3=AB?= <zoe@h.example>\nTo: Dana <dana@h.example>\nSubject: Hi\n"
                   "Date: Tue, 03 Nov 2026 10:00:00 +0100\nMessage-ID: <1@h.example>\nIn-Reply-To: <0@h.example>\n"
                   "Content-Type: text/html\n\n<style>p{}</style><p>Caf&eacute; &amp; <b>bar</b></p>\n");
    start();
    signIn();
    const auto expected = nlohmann::json::parse(R"({"emails":[{
        "uid":1,"subject":"Hi","from":"Zoë <zoe@h.example>","to":"Dana <dana@h.example>",
        "date":"Tue, 03 Nov 2026 10:00:00 +0100","timestamp":1793696400.0,"seen":false,"flagged":false,"answered":false,
        "has_attachment":false,"size":251,"message_id":"<1@h.example>","in_reply_to":"<0@h.example>",
        "body_text":"Café & bar"}],"total":1,"page":1,"pages":1,"folder":"INBOX"})");
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX&page=1&per_page=50"), expected);
}

TEST_F(ListTest, PagesAreNewestFirstWhateverTheUIDs) {
    deliverDated("1001.a:2,S", "Tue, 03 Nov 2026 10:00:00 +0000");
    deliverDated("1002.b:2,S", "Sun, 01 Nov 2026 10:00:00 +0000");
    deliverDated("1003.c:2,S", "Mon, 02 Nov 2026 10:00:00 +0000");
    start();
    signIn();
    EXPECT_EQ(listedUIDs("folder=INBOX&page=1&per_page=2"), (UIDs{1, 3}));
    EXPECT_EQ(listedUIDs("folder=INBOX&page=2&per_page=2"), (UIDs{2}));
    EXPECT_EQ(listedUIDs("folder=INBOX&page=3&per_page=2"), UIDs{});
    const auto list = getJSON("api/emails/list?folder=INBOX&page=2&per_page=2");
    EXPECT_EQ(list.at("total"), 3);
    EXPECT_EQ(list.at("pages"), 2);
    EXPECT_EQ(getJSON("api/emails/list?folder=Trash").at("pages"), 0);
}

TEST_F(ListTest, SearchAndFiltersNarrowTheWholeFolder) {
    deliverDated("1001.a:2,FS", "Sun, 01 Nov 2026 12:00:00 +0000",
                 "From: Zoë <zoe@h.example>\nSubject: Ärger\n\nText\n");
    deliverDated("1002.b:2,S", "Mon, 02 Nov 2026 12:00:00 +0000", "To: Ravi <ravi@h.example>\n\n100% sure_thing\n");
    deliverDated("1003.c:2,S", "Tue, 03 Nov 2026 12:00:00 +0000",
                 "Content-Type: multipart/mixed; boundary=b\n\n--b\n\nSee file\n--b\nContent-Type: text/plain\n"
                 "Content-Disposition: attachment; filename=a.txt\n\nhidden\n--b--\n");
    start();
    signIn();
    const std::vector<std::pair<std::string, UIDs>> cases{
        {"search=%C3%A4RGER", {1}},
        {"search=ZOE%40", {1}},
        {"search=ravi", {2}},
        {"search=SURE%20100", {2}},
        {"search=100%25", {2}},
        {"search=%25", {2}},
        {"search=sure%5Fthing", {2}},
        {"search=s%5Fre", {}},
        {"search='%20OR%201", {}},
        {"has_attachment=1", {3}},
        {"flagged=1", {1}},
        {"date_from=2026-11-02", {3, 2}},
        {"date_to=2026-11-02", {2, 1}},
        {"date_from=2026-11-02&date_to=2026-11-02", {2}},
        {"search=text&flagged=1", {1}},
        {"has_attachment=0", {3, 2, 1}},
    };
    for (const auto &[query, uids] : cases) {
        EXPECT_EQ(listedUIDs("folder=INBOX&" + query), uids) << query;
        EXPECT_EQ(getJSON("api/emails/list?folder=INBOX&" + query).at("total"), uids.size()) << query;
    }
    EXPECT_EQ(get("api/emails/list?folder=INBOX&date_from=yesterday")->status, 400);
    EXPECT_EQ(get("api/emails/list?folder=INBOX&page=two")->status, 400);
}

TEST_F(ListTest, LastDaysCountsBackFromNow) {
    deliver("1001.now:2,S", "Subject: without a date\n\n", "cur");
    deliverDated("1002.old:2,S", "Sun, 01 Nov 2020 12:00:00 +0000");
    start();
    signIn();
    EXPECT_EQ(listedUIDs("folder=INBOX&last_days=1"), UIDs{1});
}

TEST_F(ListTest, TheCachedPageIsTheOneLastListed) {
    deliverSeen(3);
    start();
    signIn();
    EXPECT_EQ(getJSON("api/emails/cached?folder=INBOX&page=1&per_page=50").at("emails").size(), 0U);
    const auto list = getJSON("api/emails/list?folder=INBOX&page=1&per_page=50");
    getJSON("api/emails/list?folder=INBOX&page=1&per_page=50&search=nothing");
    EXPECT_EQ(getJSON("api/emails/cached?folder=INBOX&page=1&per_page=50"), list);
}

TEST_F(ListTest, UIDsStayWithTheirMessagesOverRestartsAndAreNeverGivenTwice) {
    deliverSeen(3);
    start();
    signIn();
    const auto state = getJSON("api/emails/notification-state?folder=INBOX");
    m_server->kill();
    std::filesystem::remove(m_maildir / "cur/1003.x:2,S");
    std::filesystem::rename(m_maildir / "cur/1001.x:2,S", m_maildir / "cur/1001.x:2,FS");
    deliver("1000.early", "Subject: early\n\n");
    start();
    EXPECT_EQ(listedUIDs("folder=INBOX&flagged=1"), UIDs{1});
    EXPECT_EQ(getJSON("api/emails/read/4?folder=INBOX").at("subject"), "early");
    EXPECT_EQ(get("api/emails/read/3?folder=INBOX")->status, 404);
    const auto later = getJSON("api/emails/notification-state?folder=INBOX");
    EXPECT_EQ(later.at("uid_validity"), state.at("uid_validity"));
    EXPECT_EQ(later.at("uid_next"), 5);
    EXPECT_GT(later.at("version"), state.at("version"));
}

TEST_F(ListTest, TheNotificationStateCountsAndNamesTheUnread) {
    deliverSeen(2);
    deliver("2000.a", "Subject: a\n\n");
    deliver("2001.b:2,F", "Subject: b\n\n", "cur");
    start();
    signIn();
    auto state = getJSON("api/emails/notification-state?folder=INBOX");
    EXPECT_TRUE(state.at("uid_validity").is_string());
    EXPECT_TRUE(state.at("version").is_number_float());
    EXPECT_EQ(state.at("account_id"), getJSON("api/auth/me").at("user").at("_id"));
    for (const char *volatileKey : {"uid_validity", "version", "account_id"})
        state.erase(volatileKey);
    EXPECT_EQ(state,
              nlohmann::json::parse(R"({"folder":"INBOX","total":4,"unseen":2,"unread_uids":[3,4],"uid_next":5})"));
}

} // namespace
