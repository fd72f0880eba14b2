#include "notify/NotificationService.h"

#include "notify/FakeNotificationCenter.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

const QString scope = u"https://mail.example|A|V|INBOX"_s;

MailboxNotificationState inbox(std::vector<qint64> unread, double version = 1) {
    return {.folder = u"INBOX"_s,
            .unseen = qint64(unread.size()),
            .unread_uids = unread,
            .uid_validity = u"V"_s,
            .account_id = u"A"_s,
            .version = version};
}

NotificationRequest request(const QString &identifier, const QJsonObject &userInfo) {
    return {.identifier = identifier, .userInfo = userInfo};
}

class NotificationTest : public CoreTest {
protected:
    void SetUp() override { defaults.set(u"serverURL"_s, u"https://mail.example"_s); }
    void TearDown() override {
        CoreTest::TearDown();
        service.forgetMailboxes();
        service.resetBadges();
        defaults.remove(u"badgeCount"_s);
        defaults.remove(u"allFoldersUnreadCount"_s);
    }

    void apply(const MailboxNotificationState &state) { await(service.applyMailboxState(state)); }
    QJsonValue dismissed() const { return defaults.value(u"dismissedNotifications:"_s + scope).value_or(QJsonValue()); }

    UserDefaults &defaults = UserDefaults::standard();
    NotificationService &service = NotificationService::shared();
    FakeNotificationCenter center;
};

/// A notification, and whether the inbox's state with the single unread message 7 removes it.
struct StaleRow {
    const char *name;
    QByteArray userInfo;
    bool isStale;
};

class Stale : public NotificationTest, public testing::WithParamInterface<StaleRow> {};

const StaleRow staleRows[] = {
    {"Unread", R"({"type": "email", "uid": 7, "folder": "INBOX"})", false},
    {"Read", R"({"type": "email", "uid": 8, "folder": "INBOX"})", true},
    {"ReadWithoutFolder", R"({"type": "email", "uid": 8})", true},
    {"OtherFolder", R"({"type": "email", "uid": 8, "folder": "Work"})", false},
    {"OtherAccount", R"({"type": "email", "uid": 7, "folder": "Work", "accountID": "B"})", true},
    {"SameAccount", R"({"type": "email", "uid": 7, "folder": "INBOX", "accountID": "A"})", false},
    {"OtherScope", R"({"type": "email", "uid": 7, "folder": "INBOX", "mailboxScope": "other"})", true},
    {"SameScope", R"({"type": "email", "uid": 7, "folder": "INBOX", "mailboxScope": "https://mail.example|A|V|INBOX"})",
     false},
    {"Chat", R"({"type": "chat", "uid": 8, "accountID": "B"})", false},
    {"Test", R"({"type": "email", "uid": 0, "accountID": "B"})", false},
    {"NoWholeNumber", R"({"type": "email", "uid": 8.5})", false},
    {"UIDAsText", R"({"type": "email", "uid": "8"})", false},
};

struct BadgeRow {
    const char *name;
    qint64 count;
    bool isEnabled, countsAllFolders;
    qint64 allFolders;
    QString label;
    qint64 stored;
};

class Badge : public NotificationTest, public testing::WithParamInterface<BadgeRow> {};

const BadgeRow badges[] = {
    {"Zero", 0, true, false, 5, {}, 0},
    {"Negative", -3, true, false, 5, {}, 0},
    {"One", 1, true, false, 5, u"1"_s, 1},
    {"Many", 9999, true, false, 5, u"9999"_s, 9999},
    {"TooMany", 10000, true, false, 5, u"9999+"_s, 10000},
    {"Disabled", 4, false, false, 5, {}, 4},
    {"AllFolders", 4, true, true, 123, u"123"_s, 4},
    {"AllFoldersDisabled", 4, false, true, 123, {}, 4},
};

} // namespace

TEST_P(Stale, NotificationsGo) {
    const auto userInfo = parseJSON(GetParam().userInfo).toObject();
    center.delivered = {request(u"delivered"_s, userInfo)};
    center.pending = {request(u"pending"_s, userInfo)};
    apply(inbox({7}));
    EXPECT_EQ(center.present(), GetParam().isStale ? QStringList() : (QStringList{u"delivered"_s, u"pending"_s}));
}

INSTANTIATE_TEST_SUITE_P(, Stale, testing::ValuesIn(staleRows), rowName);

TEST_F(NotificationTest, AnOlderStateChangesNothing) {
    apply(inbox({7, 8}, 5));
    center.delivered = {request(u"m7"_s, {{u"type"_s, u"email"_s}, {u"uid"_s, 7}})};
    apply(inbox({}, 4));
    EXPECT_EQ(center.present(), QStringList{u"m7"_s});
    EXPECT_EQ(*service.dockBadgeLabel, u"2"_s);
    apply(inbox({8}, 5));
    EXPECT_EQ(center.present(), QStringList());
    EXPECT_EQ(*service.dockBadgeLabel, u"1"_s);
}

TEST_F(NotificationTest, AStateOfAnotherAccountAlwaysCounts) {
    apply(inbox({7, 8}, 5));
    auto other = inbox({1}, 1);
    other.account_id = u"B"_s;
    apply(other);
    EXPECT_EQ(service.mailboxStates().at(u"INBOX"_s), other);
    EXPECT_EQ(*service.dockBadgeLabel, u"1"_s);
}

TEST_F(NotificationTest, AnOvertakenStateLeavesTheWorkToTheNewerOne) {
    center.delivered = {request(u"m7"_s, {{u"type"_s, u"email"_s}, {u"uid"_s, 7}})};
    center.hold();
    launch(service.applyMailboxState(inbox({}, 1)));
    launch(service.applyMailboxState(inbox({7}, 2)));
    center.answerNext();
    ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 1; }));
    EXPECT_EQ(center.present(), QStringList{u"m7"_s});
    center.answerNext();
    ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    EXPECT_EQ(center.present(), QStringList{u"m7"_s});
    EXPECT_EQ(*service.dockBadgeLabel, u"1"_s);
}

TEST_F(NotificationTest, AStateThatWasForgottenMeanwhileShowsNothing) {
    center.hold();
    launch(service.applyMailboxState(inbox({7})));
    service.forgetMailboxes();
    center.answerNext();
    ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    EXPECT_EQ(*service.dockBadgeLabel, QString());
}

TEST_F(NotificationTest, OnlyTheInboxSetsTheBadge) {
    auto work = inbox({1, 2});
    work.folder = u"Work"_s;
    apply(work);
    EXPECT_EQ(*service.dockBadgeLabel, QString());
    work.folder = u"inbox"_s;
    apply(work);
    EXPECT_EQ(*service.dockBadgeLabel, u"2"_s);
}

TEST_F(NotificationTest, DismissingRemovesTheFolderMessages) {
    center.delivered = {request(u"m7"_s, {{u"type"_s, u"email"_s}, {u"uid"_s, 7}}),
                        request(u"m8"_s, {{u"type"_s, u"email"_s}, {u"uid"_s, 8}, {u"folder"_s, u"INBOX"_s}}),
                        request(u"work"_s, {{u"type"_s, u"email"_s}, {u"uid"_s, 7}, {u"folder"_s, u"Work"_s}}),
                        request(u"chat"_s, {{u"type"_s, u"chat"_s}, {u"uid"_s, 7}})};
    center.pending = {request(u"p7"_s, {{u"type"_s, u"email"_s}, {u"uid"_s, 7}})};
    await(service.dismissNotifications(u"INBOX"_s, {7}));
    EXPECT_EQ(center.present(), (QStringList{u"m8"_s, u"work"_s, u"chat"_s}));
    EXPECT_EQ(dismissed(), QJsonValue());
}

TEST_F(NotificationTest, RemembersTheThousandHighestDismissed) {
    apply(inbox({}));
    std::vector<qint64> uids;
    for (qint64 uid = 1200; uid >= 1; --uid)
        uids.push_back(uid);
    await(service.dismissNotifications(u"INBOX"_s, uids));
    EXPECT_EQ(dismissed().toArray().size(), 1000);
    EXPECT_EQ(dismissed().toArray().first(), 201);
    EXPECT_EQ(dismissed().toArray().last(), 1200);
}

TEST_F(NotificationTest, KeepsDismissedSortedAndOnce) {
    apply(inbox({}));
    await(service.dismissNotifications(u"INBOX"_s, {9, 7}));
    await(service.dismissNotifications(u"INBOX"_s, {8, 7}));
    await(service.dismissNotifications(u"INBOX"_s, {}));
    EXPECT_EQ(dismissed(), QJsonArray({7, 8, 9}));
}

TEST_P(Badge, ShowsTheNumberThatIsWanted) {
    const auto &row = GetParam();
    defaults.set(u"allFoldersUnreadCount"_s, QJsonValue(row.allFolders));
    if (!row.isEnabled)
        defaults.set(u"badgeEnabled"_s, QJsonValue(false));
    if (row.countsAllFolders)
        defaults.set(u"dockBadgeMode"_s, u"all"_s);
    service.setBadge(row.count);
    EXPECT_EQ(*service.dockBadgeLabel, row.label);
    EXPECT_EQ(defaults.integer(u"badgeCount"_s), row.stored);
}

INSTANTIATE_TEST_SUITE_P(, Badge, testing::ValuesIn(badges), rowName);

TEST_F(NotificationTest, SignOutLeavesNothing) {
    defaults.set(u"allFoldersUnreadCount"_s, QJsonValue(9));
    apply(inbox({7}));
    center.delivered = {request(u"chat"_s, {{u"type"_s, u"chat"_s}})};
    service.forgetMailboxes();
    service.resetBadges();
    EXPECT_TRUE(service.mailboxStates().empty());
    EXPECT_EQ(center.present(), QStringList());
    EXPECT_EQ(*service.dockBadgeLabel, QString());
    EXPECT_EQ(defaults.integer(u"badgeCount"_s), 0);
    EXPECT_EQ(defaults.integer(u"allFoldersUnreadCount"_s), 0);
}

TEST(MailboxNotificationState, NeedsEveryKey) {
    const auto whole = parseJSON(R"({"folder": "F", "total": 1, "unseen": 2, "unread_uids": [3], "uid_validity": "V",
                                     "uid_next": 4, "account_id": "A", "version": 1.5})")
                           .toObject();
    const MailboxNotificationState expected{u"F"_s, 1, 2, {3}, u"V"_s, 4, u"A"_s, 1.5};
    EXPECT_EQ(decodeJSON<MailboxNotificationState>(whole), expected);
    for (const auto &key : whole.keys()) {
        auto part = whole;
        part.remove(key);
        EXPECT_THROW(decodeJSON<MailboxNotificationState>(part), DecodingError) << qPrintable(key);
    }
}
