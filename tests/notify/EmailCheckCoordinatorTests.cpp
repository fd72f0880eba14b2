#include "notify/EmailCheckCoordinator.h"

#include "mail/MailAnswers.h"
#include "notify/NotificationService.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

class EmailCheck : public CoreTest {
protected:
    void SetUp() override { server.makeCurrent(); }
    void TearDown() override {
        CoreTest::TearDown();
        NotificationService::shared().forgetMailboxes();
    }

    FakeExchange &expectList() { return server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=100"); }
    FakeExchange &expectState() { return server.expect("GET", "/api/emails/notification-state?folder=INBOX"); }
    FakeExchange &expectChat() { return server.expect("GET", "/api/chat/unread"); }
    void expectMail(const std::vector<qint64> &uids) {
        expectList().json(pageJSON(emptyEmails(uids)));
        expectState().json(stateJSON("INBOX", "", 3));
    }

    void check() { await(EmailCheckCoordinator::shared().check(false)); }
    void finish() {
        ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    }
    std::optional<qint64> cursor() const {
        return defaults.integer(u"notificationCursor:"_s + server.address() + u"|A|V|INBOX"_s);
    }

    UserDefaults &defaults = UserDefaults::standard();
    FakeServer server;
};

} // namespace

TEST_F(EmailCheck, RemembersTheHighestMessageItHasSeen) {
    expectMail({5, 9, 7});
    expectChat().json(R"({"unread": {"u1": 3, "u2": 0}})");
    check();
    EXPECT_EQ(cursor(), 9);
    EXPECT_EQ(*NotificationService::shared().dockBadgeLabel, u"3"_s);
    EXPECT_EQ(defaults.value(u"lastChatUnreadCounts"_s), parseJSON(R"({"u1": 3, "u2": 0})"));
    expectMail({4});
    expectChat().json(R"({"unread": {}})");
    check();
    EXPECT_EQ(cursor(), 9);
    EXPECT_EQ(defaults.value(u"lastChatUnreadCounts"_s), QJsonValue(QJsonObject()));
}

TEST_F(EmailCheck, PlantsACursorInAnEmptyMailbox) {
    expectMail({});
    expectChat().answer(500);
    check();
    EXPECT_EQ(cursor(), 0);
}

TEST_F(EmailCheck, StartsAnewInARenumberedMailbox) {
    defaults.set(u"notificationCursor:"_s + server.address() + u"|A|old|INBOX"_s, QJsonValue(500));
    expectMail({9});
    expectChat().answer(500);
    check();
    EXPECT_EQ(cursor(), 9);
}

TEST_F(EmailCheck, ChecksChatEvenWhenMailFails) {
    expectList().answer(500);
    expectChat().json(R"({"unread": {"u1": 1}})");
    check();
    expectList().json(pageJSON(emptyEmails({9})));
    expectState().answer(500);
    expectChat().answer(500);
    check();
    EXPECT_EQ(cursor(), std::nullopt);
    EXPECT_EQ(defaults.value(u"lastChatUnreadCounts"_s), parseJSON(R"({"u1": 1})"));
}

TEST_F(EmailCheck, CountsAllFoldersOnlyWhenTheBadgeShowsThem) {
    defaults.set(u"dockBadgeMode"_s, u"all"_s);
    expectMail({});
    expectChat().answer(500);
    server.expect("GET", "/api/folders").json(R"({"folders": [{"path": "INBOX", "name": "I", "unseen": 3},
        {"path": "A", "name": "A"}, {"path": "B", "name": "B", "unseen": -4}, {"path": "C", "name": "C", "unseen": 9}]})");
    check();
    EXPECT_EQ(defaults.integer(u"allFoldersUnreadCount"_s), 12);
    EXPECT_EQ(defaults.integer(u"badgeCount"_s), 3);
    EXPECT_EQ(*NotificationService::shared().dockBadgeLabel, u"12"_s);
    for (const auto &[status, body] : {std::pair(500, ""), std::pair(200, R"({"folders": []})")}) {
        expectMail({});
        expectChat().answer(500);
        server.expect("GET", "/api/folders").answer(status, body);
        check();
        EXPECT_EQ(defaults.integer(u"allFoldersUnreadCount"_s), 12);
    }
}

TEST_F(EmailCheck, MakesOneFurtherPassForAllRequestsOfAPass) {
    auto &first = expectList().held();
    launch(EmailCheckCoordinator::shared().check(false));
    first.request();
    await(EmailCheckCoordinator::shared().check(true));
    await(EmailCheckCoordinator::shared().check(false));
    expectState().json(stateJSON("INBOX", "", 0));
    expectChat().answer(500);
    auto &second = expectList().held();
    answerHeld(first, pageJSON(emptyEmails({1})));
    second.request();
    // A request during the further pass is left to the next check.
    await(EmailCheckCoordinator::shared().check(false));
    expectState().json(stateJSON("INBOX", "", 0));
    expectChat().answer(500);
    answerHeld(second, pageJSON(emptyEmails({2})));
    finish();
    EXPECT_EQ(cursor(), 2);
    server.assertSilence();
    for (int pass = 0; pass < 2; ++pass) {
        expectList().answer(500);
        expectChat().answer(500);
    }
    check();
}
