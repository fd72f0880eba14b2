#include "app/MainScreenState.h"

#include "app/AppStateFixture.h"
#include "mail/MailAnswers.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

const QByteArray someFolders = R"([{"path": "INBOX", "name": "INBOX", "type": "inbox", "total": 9, "unseen": 1},
                                   {"path": "Work", "name": "Work", "total": 3, "unseen": 2},
                                   {"path": "Bin", "name": "Papierkorb", "type": "trash"}])";

class MainScreenTest : public CoreTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/emails/notification-state?folder=INBOX")
            .json(stateJSON("INBOX", "", 6))
            .anyNumberOfTimes();
    }
    void TearDown() override {
        settle();
        screen.reset();
        state.reset();
        CoreTest::TearDown();
    }

    FakeExchange &expectFolders() { return server.expect("GET", "/api/folders"); }
    void open() {
        expectFolders().json("{\"folders\": " + someFolders + "}");
        screen = MainScreenState::make(state);
        settle();
    }
    /// As the event stream delivers it.
    void deliver(const QString &name, const QByteArray &json) {
        state->sseClient.onEvent(name, parseJSON(json).toObject());
        settle();
    }
    QStringList paths() const {
        QStringList result;
        for (const auto &folder : state->folders.get())
            result.append(folder.path);
        return result;
    }
    MailFolder folder(int number) const { return (*state->folders)[number]; }
    QString selectedPath() const { return screen->selectedFolderPath->value_or(u"none"_s); }

    std::shared_ptr<MainScreenState> screen;
};

struct MailboxEvent {
    const char *name;
    QByteArray json;
    std::optional<qint64> total, unseen;
};

class MailboxEvents : public MainScreenTest, public testing::WithParamInterface<MailboxEvent> {};

const MailboxEvent mailboxEvents[] = {
    {"Both", R"({"folder": "Work", "total": 5, "unseen": 4})", 5, 4},
    {"NoTotal", R"({"folder": "Work", "unseen": 4})", std::nullopt, 4},
    {"NoNumbers", R"({"folder": "Work", "total": "5", "unseen": 1.5})", std::nullopt, std::nullopt},
    {"OtherCase", R"({"folder": "work", "total": 5, "unseen": 4})", 3, 2},
    {"NoFolder", R"({"total": 5, "unseen": 4})", 3, 2},
    {"FolderIsNoText", R"({"folder": 1, "total": 5, "unseen": 4})", 3, 2},
};

struct NavigationRow {
    const char *name;
    QString wanted, path;
};

class NavigationRequests : public MainScreenTest, public testing::WithParamInterface<NavigationRow> {};

const NavigationRow navigations[] = {
    {"RoleInAnyCase", u"tRaSh"_s, u"Bin"_s},
    {"Name", u"Papierkorb"_s, u"Bin"_s},
    {"Path", u"Work"_s, u"Work"_s},
    {"NoSuchRole", u"ARCHIVE"_s, u"INBOX"_s},
    {"PathInOtherCase", u"work"_s, u"INBOX"_s},
};

} // namespace

TEST_F(MainScreenTest, ReadsTheFoldersAndShowsTheInbox) {
    open();
    EXPECT_EQ(paths(), (QStringList{u"INBOX"_s, u"Work"_s, u"Bin"_s}));
    EXPECT_EQ(selectedPath(), u"INBOX"_s);
    EXPECT_EQ(UserDefaults::standard().integer(u"badgeCount"_s), 6);
}

TEST_F(MainScreenTest, KeepsTheFoldersWhenReadingFails) {
    open();
    screen->selectFolder(u"Work"_s);
    for (const auto &answer : {"{}"_ba, R"({"folders": [{"name": "x"}]})"_ba}) {
        expectFolders().json(answer);
        await(screen->refresh());
    }
    EXPECT_EQ(paths().size(), 3);
    EXPECT_EQ(selectedPath(), u"Work"_s);
}

TEST_F(MainScreenTest, ClosesTheMessageWithItsFolder) {
    open();
    state->selectedEmailUID = 7;
    screen->selectFolder(u"INBOX"_s);
    EXPECT_EQ(state->selectedEmailUID.get(), 7);
    screen->selectFolder(u"__favorites"_s);
    EXPECT_EQ(state->selectedEmailUID.get(), std::nullopt);
    EXPECT_EQ(state->selectedFolder->value_or(MailFolder()).name, u"Favorites"_s);
}

TEST_F(MainScreenTest, TakesALiveFolderListWhole) {
    open();
    deliver(u"folders_updated"_s, R"({"folders": [{"path": "New", "name": "New"}]})");
    EXPECT_EQ(paths(), QStringList{u"New"_s});
    EXPECT_EQ(screen->selectedFolder(), std::nullopt);
    for (const auto &bad : {"{}"_ba, R"({"folders": {}})"_ba, R"({"folders": [{"path": "x"}]})"_ba})
        deliver(u"folders_updated"_s, bad);
    EXPECT_EQ(paths(), QStringList{u"New"_s});
}

TEST_P(MailboxEvents, ChangeTheCountsOfTheirFolder) {
    open();
    deliver(u"mailbox_state"_s, GetParam().json);
    EXPECT_EQ(folder(1).total, GetParam().total);
    EXPECT_EQ(folder(1).unseen, GetParam().unseen);
    EXPECT_EQ(folder(0).total, 9);
}

INSTANTIATE_TEST_SUITE_P(, MailboxEvents, testing::ValuesIn(mailboxEvents), rowName);

TEST_F(MainScreenTest, LetsTheSharedStateHaveItsTurnAtAnEvent) {
    open();
    deliver(u"emails_changed"_s, R"({"folder": "Work"})");
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"Work"_s);
}

TEST_F(MainScreenTest, HearsNoEventsWhenItIsGone) {
    open();
    screen.reset();
    deliver(u"folders_updated"_s, R"({"folders": []})");
    EXPECT_EQ(paths().size(), 3);
}

TEST_P(NavigationRequests, SelectsTheNamedFolder) {
    open();
    state->navigateToFolder = GetParam().wanted;
    settle();
    EXPECT_EQ(selectedPath(), GetParam().path);
    EXPECT_EQ(state->navigateToFolder.get(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(, NavigationRequests, testing::ValuesIn(navigations), rowName);

TEST_F(MainScreenTest, OpensAPendingMessageOnceItsFolderIsThere) {
    open();
    const PendingEmail pending{7, u"Later"_s};
    state->pendingOpenEmail = pending;
    settle();
    EXPECT_EQ(state->pendingOpenEmail.get(), pending);
    EXPECT_EQ(state->selectedEmailUID.get(), std::nullopt);
    deliver(u"folders_updated"_s, R"({"folders": [{"path": "Later", "name": "Later"}]})");
    EXPECT_EQ(state->pendingOpenEmail.get(), std::nullopt);
    EXPECT_EQ(selectedPath(), u"Later"_s);
    EXPECT_EQ(state->selectedEmailUID.get(), 7);
}

TEST_F(MainScreenTest, SelectsTheFolderOfAPendingMessageATurnBeforeTheMessage) {
    open();
    std::vector<std::pair<QString, std::optional<qint64>>> turns;
    QObject::connect(screen.get(), &ObservableObject::changed, screen.get(),
                     [&] { turns.emplace_back(selectedPath(), state->selectedEmailUID); });
    state->pendingOpenEmail = PendingEmail{7, u"Work"_s};
    settle();
    EXPECT_THAT(turns, ElementsAre(std::pair(u"Work"_s, std::optional<qint64>())));
    EXPECT_EQ(state->selectedEmailUID.get(), 7);
}

TEST_F(MainScreenTest, LeadsToTheChatOnceForEachRequest) {
    open();
    state->pendingOpenChat = u"u2"_s;
    settle();
    EXPECT_EQ(state->navigationDestination.get(), AppDestination::chat);
    EXPECT_EQ(state->pendingOpenChat.get(), u"u2"_s);
    state->navigationDestination = std::nullopt;
    settle();
    EXPECT_EQ(state->navigationDestination.get(), std::nullopt);
    state->pendingOpenChat = u"u3"_s;
    settle();
    EXPECT_EQ(state->navigationDestination.get(), AppDestination::chat);
}

TEST_F(MainScreenTest, ActsOnQuickActions) {
    open();
    screen->selectFolder(u"Work"_s);
    const auto former = *state->composePresentationID;
    state->pendingShortcutAction = QuickActionType::compose;
    settle();
    EXPECT_NE(*state->composePresentationID, former);
    state->pendingShortcutAction = QuickActionType::inbox;
    settle();
    EXPECT_EQ(selectedPath(), u"INBOX"_s);
    state->pendingShortcutAction = QuickActionType::messages;
    settle();
    EXPECT_EQ(state->navigationDestination.get(), AppDestination::chat);
    EXPECT_EQ(state->pendingShortcutAction.get(), std::nullopt);
}

TEST_F(MainScreenTest, AcceptsADropThatMovesSomething) {
    open();
    const auto work = folder(1);
    EXPECT_FALSE(screen->acceptsDrop({}, work));
    EXPECT_FALSE(screen->acceptsDrop({{7, u"Work"_s}}, work));
    EXPECT_TRUE(screen->acceptsDrop({{7, u"Work"_s}, {8, u"INBOX"_s}}, work));
    const MailFolder favorites{.path = u"__favorites"_s, .name = u"Favorites"_s};
    EXPECT_FALSE(screen->acceptsDrop({{8, u"INBOX"_s}}, favorites));
    await(screen->drop({{7, u"Work"_s}}, work));
    server.assertSilence();
}

TEST_F(MainScreenTest, MovesWhatWasDroppedAndGoesOnAfterAFailure) {
    open();
    auto &move = server.expect("POST", "/api/emails/move").answer(500);
    auto &second = server.expect("POST", "/api/emails/move").json("{}");
    expectFolders().json(R"({"folders": []})");
    await(screen->drop({{7, u"INBOX"_s}, {1, u"Work"_s}, {8, u"INBOX"_s}}, folder(1)));
    EXPECT_EQ(parseJSON(move.request().body).toObject().value("uid"_L1), 7);
    EXPECT_EQ(parseJSON(second.request().body).toObject().value("uid"_L1), 8);
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"INBOX"_s);
    EXPECT_EQ(paths(), QStringList());
}
