#include "app/MacMailCommands.h"

#include "app/KeyboardShortcuts.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

using enum MacMenu;

/// Where a command stands and by which key it is reached first.
struct CommandRow {
    MacMenu menu;
    const char *title, *keys;
    bool startsGroup = false, isForAdministrators = false;
};

const CommandRow expectedCommands[] = {
    {application, "Settings…", "Ctrl+,"},
    {file, "New Message", "Ctrl+N"},
    {file, "Show Mail", "Ctrl+0"},
    {file, "Attach Files…", "Ctrl+Shift+A"},
    {file, "Send Message", "Ctrl+Shift+D"},
    {file, "Save All Attachments…", "Ctrl+Alt+S"},
    {edit, "Search Mail", "Ctrl+Alt+F"},
    {mailbox, "Get New Mail", "Ctrl+Shift+N"},
    {mailbox, "Inbox", "Ctrl+1", true},
    {mailbox, "Sent", "Ctrl+2"},
    {mailbox, "Drafts", "Ctrl+3"},
    {mailbox, "Archive", "Ctrl+4"},
    {mailbox, "Junk", "Ctrl+5"},
    {mailbox, "Trash", "Ctrl+6"},
    {message, "Reply", "Ctrl+R"},
    {message, "Reply All", "Ctrl+Shift+R"},
    {message, "Forward", "Ctrl+Shift+F"},
    {message, "Mark as Read / Unread", "Ctrl+Shift+U", true},
    {message, "Flag / Unflag", "Ctrl+Shift+L"},
    {message, "Archive", "Ctrl+Alt+A"},
    {message, "Move to Junk / Inbox", "Ctrl+Shift+J"},
    {message, "Move to Trash", "Ctrl+Backspace"},
    {message, "Block Sender…", "Ctrl+Shift+B"},
    {message, "View Source", "Ctrl+Alt+U", true},
    {tools, "Chat", "Ctrl+Shift+M"},
    {tools, "AI Assistant", ""},
    {tools, "Contacts", ""},
    {tools, "Filters", ""},
    {tools, "Blocked Senders", ""},
    {tools, "Quick Reply Templates", ""},
    {tools, "Folder Management", ""},
    {tools, "Folder Sharing", ""},
    {tools, "AI Auto Reply Rules", ""},
    {tools, "AI Usage", ""},
    {tools, "Administration", "", true, true},
    {tools, "Security", "", false, true},
    {help, "Keyboard Shortcuts", "Ctrl+/"},
};

class MacMailCommandsTest : public CoreTest {
protected:
    void SetUp() override { state->isAuthenticated = true; }
    void TearDown() override {
        deliverQueuedEvents();
        state.reset();
        CoreTest::TearDown();
    }

    const MacMailCommand &command(const QString &title, MacMenu menu) const {
        for (const auto &candidate : commands.commands())
            if (candidate.title == title && candidate.menu == menu)
                return candidate;
        throw std::runtime_error("no such command");
    }
    void press(const QString &title, MacMenu menu = message) { command(title, menu).perform(); }
    QStringList enabledIn(MacMenu menu) const {
        QStringList titles;
        for (const auto &candidate : commands.commands())
            if (candidate.menu == menu && candidate.isEnabled())
                titles.append(candidate.title);
        return titles;
    }

    void offerMailbox(qint64 selected) {
        focused.publishMailbox(MacMailboxActions{selected, [this](MacMailAction action) { toList.push_back(action); }});
    }
    void offerMessage(bool hasAttachments = false) {
        focused.publishMessage(
            MacMessageActions{hasAttachments, [this](MacMailAction action) { toMessage.push_back(action); }});
    }

    using Actions = std::vector<MacMailAction>;
    std::shared_ptr<AppState> state = std::make_shared<AppState>();
    FocusedActions focused;
    int windowOpenings = 0;
    Actions toList, toMessage;
    MacMailCommands commands{state, focused, [this] { ++windowOpenings; }};
};

const QStringList selectionCommands{u"Mark as Read / Unread"_s, u"Flag / Unflag"_s, u"Archive"_s,
                                    u"Move to Junk / Inbox"_s,  u"Move to Trash"_s, u"Block Sender…"_s};
const QStringList folderCommands{u"Inbox"_s, u"Sent"_s, u"Drafts"_s, u"Archive"_s, u"Junk"_s, u"Trash"_s};

} // namespace

TEST_F(MacMailCommandsTest, StandInTheirOrderWithTheirKeys) {
    ASSERT_EQ(commands.commands().size(), std::size(expectedCommands));
    for (std::size_t i = 0; i < std::size(expectedCommands); ++i) {
        const auto &command = commands.commands()[i];
        const auto &expected = expectedCommands[i];
        SCOPED_TRACE(expected.title);
        EXPECT_EQ(command.menu, expected.menu);
        EXPECT_EQ(command.title, QString::fromUtf8(expected.title));
        EXPECT_EQ(command.keys.value(0).toString(), QString::fromLatin1(expected.keys));
        EXPECT_EQ(command.startsGroup, expected.startsGroup);
        EXPECT_EQ(command.isForAdministrators, expected.isForAdministrators);
    }
}

TEST_F(MacMailCommandsTest, NoTwoAnswerTheSameKey) {
    QSet<QString> seen;
    for (const auto &command : commands.commands())
        for (const auto &keys : command.keys) {
            EXPECT_FALSE(seen.contains(keys.toString())) << keys.toString().toStdString();
            seen.insert(keys.toString());
        }
}

TEST_F(MacMailCommandsTest, WithNothingOnShowOnlyGeneralOnesAreEnabled) {
    EXPECT_EQ(enabledIn(file), (QStringList{u"New Message"_s, u"Show Mail"_s}));
    EXPECT_EQ(enabledIn(edit), QStringList());
    EXPECT_EQ(enabledIn(mailbox), folderCommands);
    EXPECT_EQ(enabledIn(message), QStringList());
}

TEST_F(MacMailCommandsTest, AListWithoutSelectionCanBeReadAnewAndSearched) {
    offerMailbox(0);
    EXPECT_EQ(enabledIn(edit), QStringList{u"Search Mail"_s});
    EXPECT_EQ(enabledIn(mailbox), QStringList{u"Get New Mail"_s} + folderCommands);
    EXPECT_EQ(enabledIn(message), QStringList());
    press(u"Get New Mail"_s, mailbox);
    press(u"Search Mail"_s, edit);
    press(u"Move to Trash"_s);
    EXPECT_EQ(toList, (Actions{MacMailAction::refresh, MacMailAction::search}));
}

TEST_F(MacMailCommandsTest, SelectionGoesBeforeTheOpenedMessageButRepliesDoNot) {
    offerMailbox(3);
    EXPECT_EQ(enabledIn(message), selectionCommands);
    offerMessage();
    EXPECT_EQ(enabledIn(message).size(), 10);
    for (const auto &title : selectionCommands)
        press(title);
    EXPECT_EQ(toList, (Actions{MacMailAction::toggleRead, MacMailAction::flag, MacMailAction::archive,
                               MacMailAction::junk, MacMailAction::delete_, MacMailAction::block}));
    for (const auto &title : {u"Reply"_s, u"Reply All"_s, u"Forward"_s, u"View Source"_s})
        press(title);
    EXPECT_EQ(toMessage,
              (Actions{MacMailAction::reply, MacMailAction::replyAll, MacMailAction::forward, MacMailAction::source}));
}

TEST_F(MacMailCommandsTest, WithoutASelectionTheOpenedMessageIsMeant) {
    offerMailbox(0);
    offerMessage();
    press(u"Move to Trash"_s);
    EXPECT_EQ(toList, Actions());
    EXPECT_EQ(toMessage, Actions{MacMailAction::delete_});
}

TEST_F(MacMailCommandsTest, AttachmentsCanBeSavedOnlyWhereThereAreSome) {
    offerMessage(false);
    EXPECT_FALSE(command(u"Save All Attachments…"_s, file).isEnabled());
    offerMessage(true);
    press(u"Save All Attachments…"_s, file);
    EXPECT_EQ(toMessage, Actions{MacMailAction::saveAttachments});
}

TEST_F(MacMailCommandsTest, ASectionInPlaceOfTheMailTurnsMailCommandsOff) {
    offerMailbox(1);
    offerMessage(true);
    state->navigationDestination = AppDestination::settings;
    EXPECT_EQ(enabledIn(message), QStringList());
    EXPECT_EQ(enabledIn(mailbox), folderCommands);
    EXPECT_EQ(enabledIn(file), (QStringList{u"New Message"_s, u"Show Mail"_s}));
}

TEST_F(MacMailCommandsTest, AMessageBeingWrittenTurnsMailCommandsOff) {
    offerMailbox(1);
    offerMessage(true);
    int sent = 0, attached = 0;
    focused.publishCompose(MacComposeActions{false, [&] { ++sent; }, [&] { ++attached; }});
    EXPECT_EQ(enabledIn(message), QStringList());
    EXPECT_EQ(enabledIn(file), (QStringList{u"Show Mail"_s, u"Attach Files…"_s}));
    press(u"Send Message"_s, file);
    press(u"Attach Files…"_s, file);
    EXPECT_EQ(sent, 0);
    EXPECT_EQ(attached, 1);
    focused.publishCompose(MacComposeActions{true, [&] { ++sent; }, [&] { ++attached; }});
    press(u"Send Message"_s, file);
    EXPECT_EQ(sent, 1);
}

TEST_F(MacMailCommandsTest, ANewMessageIsANewPresentation) {
    const auto former = state->composePresentationID.get();
    press(u"New Message"_s, file);
    EXPECT_NE(state->composePresentationID.get(), former);
    EXPECT_TRUE(state->showCompose);
    EXPECT_EQ(windowOpenings, 1);
}

TEST_F(MacMailCommandsTest, FoldersAndSectionsAreAskedForInTheMainWindow) {
    press(u"Junk"_s, mailbox);
    EXPECT_EQ(state->navigateToFolder.get(), u"Junk"_s);
    press(u"AI Usage"_s, tools);
    EXPECT_EQ(state->navigationDestination.get(), AppDestination::aiUsage);
    press(u"Settings…"_s, application);
    EXPECT_EQ(state->navigationDestination.get(), AppDestination::settings);
    EXPECT_EQ(windowOpenings, 3);
}

TEST_F(MacMailCommandsTest, SignedOutTheyStayEnabledAndDoNothing) {
    state->isAuthenticated = false;
    EXPECT_EQ(enabledIn(mailbox), folderCommands);
    EXPECT_EQ(enabledIn(application), QStringList());
    EXPECT_EQ(enabledIn(file), QStringList{u"Show Mail"_s});
    press(u"Inbox"_s, mailbox);
    press(u"Chat"_s, tools);
    EXPECT_EQ(state->navigateToFolder.get(), std::nullopt);
    EXPECT_EQ(state->navigationDestination.get(), std::nullopt);
    EXPECT_EQ(windowOpenings, 0);
    press(u"Keyboard Shortcuts"_s, help);
    EXPECT_TRUE(state->showKeyboardShortcuts);
    EXPECT_EQ(windowOpenings, 1);
}

TEST_F(MacMailCommandsTest, OnlyAdministratorsAreAdministrators) {
    EXPECT_FALSE(commands.isAdministrator());
    state->currentUser = decodeJSON<User>(parseJSON(R"({"role": "user"})"));
    EXPECT_FALSE(commands.isAdministrator());
    state->currentUser = decodeJSON<User>(parseJSON(R"({"role": "admin"})"));
    EXPECT_TRUE(commands.isAdministrator());
}

TEST(KeyboardShortcuts, ShowsKnownKeysAsGlyphs) {
    EXPECT_EQ(keyCaps(u"Cmd + Shift + R"_s), (QStringList{u"⌘"_s, u"⇧"_s, u"R"_s}));
    EXPECT_EQ(keyCaps(u"Cmd + Control + A"_s), (QStringList{u"⌘"_s, u"⌃"_s, u"A"_s}));
    EXPECT_EQ(keyCaps(u"Cmd + 4 / 5 / 6"_s), (QStringList{u"⌘"_s, u"4 / 5 / 6"_s}));
    EXPECT_EQ(keyCaps(u"Return"_s), QStringList{u"↩"_s});
    EXPECT_EQ(keyCaps(u"↑ / ↓"_s), QStringList{u"↑ / ↓"_s});
    EXPECT_EQ(keyCaps(u"alt + ctrl + enter + delete + option"_s),
              (QStringList{u"⌥"_s, u"⌃"_s, u"↩"_s, u"⌫"_s, u"⌥"_s}));
}
