#include "app/AppStateFixture.h"

#include "notify/FakeNotificationCenter.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class LiveEvents : public CoreTest, protected AppStateFixture {
protected:
    void TearDown() override {
        state.reset();
        CoreTest::TearDown();
    }

    static NotificationRequest mailNotification(qint64 uid, const QString &folder) {
        NotificationRequest request;
        request.identifier = folder + QString::number(uid);
        request.userInfo = {{u"type"_s, u"email"_s}, {u"uid"_s, uid}, {u"folder"_s, folder}};
        return request;
    }

    ManualClock clock;
};

struct ChangeEvent {
    const char *name;
    QByteArray json;
    std::optional<QString> changedFolder;
    QStringList remaining;
};

class ChangeEvents : public LiveEvents, public testing::WithParamInterface<ChangeEvent> {};

const QStringList all{u"INBOX7"_s, u"INBOX8"_s, u"Work7"_s};

const ChangeEvent changeEvents[] = {
    {"Plain", R"({"folder": "Work", "uids": [7]})", u"Work"_s, all},
    {"NeitherSeenNorRemoved", R"({"seen": false, "removed": false, "uids": [7]})", u"INBOX"_s, all},
    {"Seen", R"({"folder": "Work", "seen": true, "uids": [7]})", u"Work"_s, {u"INBOX7"_s, u"INBOX8"_s}},
    {"Removed", R"({"removed": true, "uids": [7, "x", 8.0, 7.5]})", u"INBOX"_s, {u"Work7"_s}},
    {"NoUIDs", R"({"seen": true})", u"INBOX"_s, all},
    {"WrongKinds", R"({"folder": 3, "seen": "yes", "uids": "7"})", u"INBOX"_s, all},
};

struct NewMailEvent {
    const char *name;
    QByteArray json;
    std::optional<QString> changedFolder;
};

class NewMailEvents : public LiveEvents, public testing::WithParamInterface<NewMailEvent> {};

const NewMailEvent newMailEvents[] = {
    {"NoCount", R"({"latest": [{"folder": "Work"}]})", std::nullopt},
    {"CountZero", R"({"count": 0, "latest": [{"folder": "Work"}]})", std::nullopt},
    {"CountIsText", R"({"count": "2"})", std::nullopt},
    {"CountIsBroken", R"({"count": 1.5})", std::nullopt},
    {"NoLatest", R"({"count": 2})", u"INBOX"_s},
    {"EmptyLatest", R"({"count": 2, "latest": []})", u"INBOX"_s},
    {"LatestWithoutFolder", R"({"count": 1, "latest": [{"uid": 3}, {"folder": "Work"}]})", u"INBOX"_s},
    {"FirstOfLatest", R"({"count": 2, "latest": [{"folder": "Work"}, {"folder": "Other"}]})", u"Work"_s},
};

struct ChatEvent {
    const char *name;
    QByteArray json;
    QString fromName, fromId, text;
};

class ChatEvents : public LiveEvents, public testing::WithParamInterface<ChatEvent> {};

const ChatEvent chatEvents[] = {
    {"Whole", R"({"from_name": "Bo", "from_id": "u2", "message": "Hi", "text": "x"})", u"Bo"_s, u"u2"_s, u"Hi"_s},
    {"Bare", "{}", u"Someone"_s, QString(), QString()},
    {"TextInstead", R"({"text": "Hi"})", u"Someone"_s, QString(), u"Hi"_s},
    {"EmptyMessageCounts", R"({"message": "", "text": "Hi"})", u"Someone"_s, QString(), QString()},
    {"WrongKinds", R"({"from_name": 1, "from_id": 2, "message": 3})", u"Someone"_s, QString(), QString()},
};

struct RolePaths {
    const char *name;
    std::vector<MailFolder> folders;
    QString junk, archive, trash;
};

class FolderPaths : public LiveEvents, public testing::WithParamInterface<RolePaths> {};

const RolePaths rolePaths[] = {
    {"NoFolders", {}, u"Junk"_s, u"Archive"_s, u"Trash"_s},
    {"NoSuchRoles", {{.path = u"Trash"_s, .name = u"x"_s}}, u"Junk"_s, u"Archive"_s, u"Trash"_s},
    {"FirstOfEach",
     {{.path = u"a"_s, .name = u"x"_s, .type = u"trash"_s},
      {.path = u"b"_s, .name = u"x"_s, .type = u"trash"_s},
      {.path = u"c"_s, .name = u"x"_s, .type = u"spam"_s},
      {.path = u"d"_s, .name = u"x"_s, .type = u"archive"_s}},
     u"c"_s,
     u"d"_s,
     u"a"_s},
};

} // namespace

TEST_P(ChangeEvents, AskForAReloadAndTakeNotificationsAway) {
    FakeNotificationCenter center;
    center.delivered = {mailNotification(7, u"INBOX"_s), mailNotification(8, u"INBOX"_s),
                        mailNotification(7, u"Work"_s)};
    receive(u"emails_changed"_s, GetParam().json);
    settle();
    EXPECT_EQ(state->emailsChangedInFolder.get(), GetParam().changedFolder);
    EXPECT_EQ(center.present(), GetParam().remaining);
    EXPECT_FALSE(mailCheck.hasArrived());
}

INSTANTIATE_TEST_SUITE_P(, ChangeEvents, testing::ValuesIn(changeEvents), rowName);

TEST_P(NewMailEvents, AskForAReloadAndACheck) {
    receive(u"new_emails"_s, GetParam().json);
    settle();
    EXPECT_EQ(state->emailsChangedInFolder.get(), GetParam().changedFolder);
    EXPECT_EQ(mailCheck.hasArrived(), GetParam().changedFolder.has_value());
}

INSTANTIATE_TEST_SUITE_P(, NewMailEvents, testing::ValuesIn(newMailEvents), rowName);

TEST_F(LiveEvents, NotifyInFrontOnlyIfThePersonWantsIt) {
    for (const bool wantsThem : {false, true}) {
        UserDefaults::standard().set(u"notifyWhileActive"_s, wantsThem);
        state->isActive = true;
        EXPECT_EQ(state->deliversNotifications(), wantsThem);
        state->isActive = false;
        EXPECT_TRUE(state->deliversNotifications());
    }
}

TEST_P(ChatEvents, BringAMessageAndACheck) {
    receive(u"chat_message"_s, GetParam().json);
    settle();
    const auto message = state->incomingChatMessage.get();
    ASSERT_TRUE(message);
    EXPECT_EQ(message->fromName, GetParam().fromName);
    EXPECT_EQ(message->fromId, GetParam().fromId);
    EXPECT_EQ(message->text, GetParam().text);
    EXPECT_EQ(message->timestamp, clock.now());
    EXPECT_FALSE(state->showChatBubble);
    EXPECT_TRUE(mailCheck.hasArrived());
}

INSTANTIATE_TEST_SUITE_P(, ChatEvents, testing::ValuesIn(chatEvents), rowName);

TEST_F(LiveEvents, KeepTheBubbleUpForEachMessagesOwnTime) {
    UserDefaults::standard().set(u"showChatBubbles"_s, true);
    receive(u"chat_message"_s, R"({"message": "one"})");
    EXPECT_TRUE(state->showChatBubble);
    clock.advance(3s);
    receive(u"chat_message"_s, R"({"message": "two"})");
    clock.advance(4999ms);
    EXPECT_TRUE(state->showChatBubble);
    clock.advance(1ms);
    EXPECT_FALSE(state->showChatBubble);
    settle();
}

TEST_F(LiveEvents, LeaveNoBubbleTimerBehind) {
    UserDefaults::standard().set(u"showChatBubbles"_s, true);
    receive(u"chat_message"_s, "{}");
    settle();
    state.reset();
    clock.advance(5s);
}

TEST_F(LiveEvents, CheckWhenConnected) {
    receive(u"connected"_s, "{}");
    settle();
    EXPECT_EQ(mailCheck.arrivals(), 1);
}

TEST_F(LiveEvents, BringTheStateOfAMailbox) {
    receive(u"mailbox_state"_s, R"({"folder": "INBOX", "total": 9, "unseen": 4, "unread_uids": [], "uid_validity": "V",
                                    "uid_next": 99, "account_id": "A", "version": 1})");
    settle();
    EXPECT_EQ(UserDefaults::standard().integer(u"badgeCount"_s), 4);
    receive(u"mailbox_state"_s, R"({"folder": "INBOX", "unseen": 5})");
    receive(u"mailbox_state"_s, "{}");
    settle();
    EXPECT_EQ(UserDefaults::standard().integer(u"badgeCount"_s), 4);
}

TEST_F(LiveEvents, OfAnUnknownNameDoNothing) {
    receive(u"emails_moved"_s, R"({"folder": "INBOX", "count": 3})");
    receive(QString(), "{}");
    settle();
    EXPECT_EQ(state->emailsChangedInFolder.get(), std::nullopt);
    EXPECT_EQ(state->incomingChatMessage.get(), std::nullopt);
    server.assertSilence();
    EXPECT_FALSE(mailCheck.hasArrived());
}

TEST_F(LiveEvents, OfOneTurnAreEachHeard) {
    QStringList heard;
    QObject::connect(state.get(), &ObservableObject::changed, state.get(),
                     [&] { heard.append(state->emailsChangedInFolder->value_or(QString())); });
    receive(u"emails_changed"_s, R"({"folder": "INBOX"})");
    receive(u"emails_changed"_s, R"({"folder": "Trash"})");
    EXPECT_EQ(heard, (QStringList{u"INBOX"_s, u"Trash"_s}));
}

TEST_P(FolderPaths, ComeFromTheRoles) {
    state->folders = GetParam().folders;
    EXPECT_EQ(state->junkFolderPath(), GetParam().junk);
    EXPECT_EQ(state->archiveFolderPath(), GetParam().archive);
    EXPECT_EQ(state->trashFolderPath(), GetParam().trash);
}

INSTANTIATE_TEST_SUITE_P(, FolderPaths, testing::ValuesIn(rolePaths), rowName);
