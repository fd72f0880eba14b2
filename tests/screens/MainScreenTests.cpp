#include "app/screens/MainScreen.h"

#include "app/AppStateFixture.h"
#include "app/screens/AppWindow.h"
#include "app/screens/ContentView.h"
#include "app/screens/KeyboardShortcutsView.h"
#include "app/screens/LoginView.h"
#include "mail/MailAnswers.h"
#include "mail/screens/EmailListView.h"
#include "mail/screens/PlainTextView.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/screens/Buttons.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class WholeScreen : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/folders")
            .json(R"({"folders": [{"path": "INBOX", "name": "INBOX", "type": "inbox"},
                                  {"path": "Work", "name": "Work", "unseen": 2}]})")
            .anyNumberOfTimes();
        server.expect("GET", "/api/folders/cached").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/auth/registration-status").answer(500).anyNumberOfTimes();
        for (const QByteArray folder : {"INBOX", "Work"}) {
            server.expect("GET", "/api/emails/notification-state?folder=" + folder).answer(500).anyNumberOfTimes();
            server.expect("GET", "/api/emails/cached?folder=" + folder + "&page=1&per_page=50")
                .answer(500)
                .anyNumberOfTimes();
            server.expect("GET", "/api/emails/list?folder=" + folder + "&page=1&per_page=50")
                .json(pageJSON(emptyEmails({1, 2, 3})))
                .anyNumberOfTimes();
            server.expect("GET", "/api/emails/read/2?folder=" + folder)
                .json(R"({"uid": 2, "body_text": "Hello", "to": [{"email": "b@x.org"}]})")
                .anyNumberOfTimes();
        }
        window = std::make_unique<AppWindow>(u"Corvanite"_s, state, [] {});
        view = new ContentView(state, window->focusedActions());
        window->setContent(view);
        window->resize(1200, 800);
        showActive(*window);
    }
    void TearDown() override {
        settle();
        window.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    void open() {
        state->isLoading = false;
        beginSession();
        settle();
    }
    QListView *folders() const { return visibleNamed<QListView>(*view, u"Folders"_s); }
    QListView *messages() const { return visibleNamed<QListView>(*view, u"Messages"_s); }
    static QString shownIn(const QListView *list) { return list->currentIndex().data().toString(); }
    QLineEdit *search() const { return visibleNamed<QLineEdit>(*view, u"Search emails…"_s); }
    QAction *menuEntry(const QString &menu, const QString &entry) const {
        for (const auto *candidate : window->findChildren<QMenu *>())
            if (candidate->title().remove(u'&') == menu)
                for (auto *action : candidate->actions())
                    if (action->text() == entry)
                        return action;
        ADD_FAILURE() << "no such entry: " << entry.toStdString();
        return nullptr;
    }
    /// Whether this entry of the menu bar can be chosen.
    bool offers(const QString &menu, const QString &entry) const {
        const auto *action = menuEntry(menu, entry);
        return action && action->isEnabled() && action->isVisible();
    }
    void choose(const QString &menu, const QString &entry) const {
        ASSERT_TRUE(offers(menu, entry));
        menuEntry(menu, entry)->trigger();
    }
    QStringList accountMenu() const {
        visibleNamed<IconButton>(*view, u"Account and shortcuts"_s)->click();
        QStringList entries;
        for (const auto *action : view->findChild<QMenu *>()->actions())
            entries.append(action->text());
        QApplication::activePopupWidget()->close();
        return entries;
    }

    ManualClock clock;
    std::unique_ptr<AppWindow> window;
    ContentView *view = nullptr;
};

} // namespace

TEST_F(WholeScreen, LeadsFromTheSplashToTheMailAndBackToTheSignInScreen) {
    EXPECT_FALSE(view->mainScreen() || view->findChild<LoginView *>());
    state->isLoading = false;
    settle();
    EXPECT_TRUE(view->findChild<LoginView *>());
    beginSession();
    ASSERT_TRUE(view->mainScreen());
    settle();
    EXPECT_EQ(shownIn(folders()), u"Inbox"_s);
    EXPECT_TRUE(messages()->hasFocus());
    server.expect("POST", "/api/auth/logout").json("{}");
    await(state->signOut());
    settle();
    EXPECT_FALSE(view->mainScreen());
    EXPECT_TRUE(view->findChild<LoginView *>());
}

TEST_F(WholeScreen, ChangesFoldersWithTheKeyboard) {
    open();
    QTest::keyClick(messages(), Qt::Key_Down);
    ASSERT_TRUE(state->selectedEmailUID.get());
    folders()->setFocus();
    QTest::keyClick(folders(), Qt::Key_End);
    settle();
    EXPECT_EQ(shownIn(folders()), u"Work"_s);
    EXPECT_EQ(state->selectedFolder->value_or(MailFolder()).path, u"Work"_s);
    EXPECT_EQ(state->selectedEmailUID.get(), std::nullopt);
    EXPECT_TRUE(folders()->hasFocus());
    QTest::keyClick(folders(), Qt::Key_Home);
    settle();
    EXPECT_EQ(shownIn(folders()), u"Inbox"_s);
}

TEST_F(WholeScreen, WalksFromPaneToPane) {
    open();
    const auto press = [this](Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F6, modifiers);
        return accessibleName(*QApplication::focusWidget());
    };
    EXPECT_EQ(press(), u"Folders"_s) << "there is no message to go to";
    EXPECT_EQ(press(), u"Messages"_s);
    state->selectedEmailUID = 2;
    settle();
    settle();
    EXPECT_EQ(press(), u"Message text"_s);
    EXPECT_EQ(press(), u"Folders"_s);
    EXPECT_EQ(press(Qt::ShiftModifier), u"Message text"_s);
    EXPECT_EQ(press(Qt::ShiftModifier), u"Messages"_s);
    state->navigationDestination = AppDestination::settings;
    settle();
    folders()->setFocus();
    EXPECT_EQ(press(), u"Back to Mail"_s);
    EXPECT_EQ(press(), u"Folders"_s);
}

TEST_F(WholeScreen, GoesOnInTheMessagesOfAFolder) {
    open();
    for (const auto key : {Qt::Key_Return, Qt::Key_Right}) {
        folders()->setFocus();
        QTest::keyClick(folders(), key == Qt::Key_Return ? Qt::Key_End : Qt::Key_Home);
        QTest::keyClick(folders(), key);
        settle();
        settle();
        EXPECT_TRUE(messages() && messages()->hasFocus());
    }
    folders()->setFocus();
    QTest::keyClick(folders(), Qt::Key_1, Qt::ControlModifier);
    settle();
    EXPECT_TRUE(messages()->hasFocus()) << "the folder was on show already";
    state->navigationDestination = AppDestination::settings;
    settle();
    QTest::keyClick(window.get(), Qt::Key_1, Qt::ControlModifier);
    settle();
    EXPECT_TRUE(messages() && messages()->hasFocus());
}

TEST_F(WholeScreen, OpensItsMenusByKey) {
    open();
    QTest::keyClick(messages(), Qt::Key_F10);
    auto *menu = QApplication::activePopupWidget();
    ASSERT_TRUE(menu);
    menu->close();
}

TEST_F(WholeScreen, KeepsTheFolderWhenTheListOfFoldersChanges) {
    open();
    state->navigateToFolder = u"Work"_s;
    settle();
    state->sseClient.onEvent(u"folders_updated"_s, parseJSON(R"({"folders": [{"path": "New", "name": "New"},
                             {"path": "Work", "name": "Work"}]})")
                                                       .toObject());
    settle();
    EXPECT_EQ(shownIn(folders()), u"Work"_s);
    EXPECT_EQ(state->selectedFolder->value_or(MailFolder()).path, u"Work"_s);
}

TEST_F(WholeScreen, GoesToASectionAndBack) {
    open();
    visibleNamed<IconButton>(*view, u"Settings"_s)->click();
    settle();
    EXPECT_EQ(state->navigationDestination.get(), AppDestination::settings);
    EXPECT_FALSE(messages());
    EXPECT_FALSE(folders()->currentIndex().isValid());
    QTest::mouseClick(folders()->viewport(), Qt::LeftButton, {},
                      folders()->visualRect(folders()->model()->index(1, 0)).center());
    settle();
    EXPECT_EQ(state->navigationDestination.get(), std::nullopt);
    EXPECT_TRUE(messages());
    EXPECT_EQ(shownIn(folders()), u"Inbox"_s);
}

TEST_F(WholeScreen, OffersAdministrationToAdministrators) {
    open();
    EXPECT_EQ(accountMenu(), (QStringList{u"Keyboard Shortcuts"_s, u"Sign Out"_s}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    auto user = *state->currentUser.get();
    user.role = u"admin"_s;
    state->currentUser = user;
    EXPECT_EQ(accountMenu(), (QStringList{u"Keyboard Shortcuts"_s, u"Administration"_s, u"Security"_s, u"Sign Out"_s}));
}

TEST_F(WholeScreen, ShowsAMessageThatWasWaitingForItsFolder) {
    state->pendingOpenEmail = PendingEmail{2, u"Work"_s};
    open();
    settle();
    EXPECT_EQ(state->selectedEmailUID.get(), 2);
    EXPECT_TRUE(visibleNamed<QPushButton>(*view, u"Click to copy b@x.org"_s));
}

TEST_F(WholeScreen, HasShortcutsForSearchAndReload) {
    open();
    QTest::keyClick(window.get(), Qt::Key_F, Qt::ControlModifier);
    settle();
    EXPECT_EQ(accessibleName(*window->focusWidget()), u"Search emails…"_s);
}

TEST_F(WholeScreen, ItsMenusFollowWhatIsOnShow) {
    EXPECT_FALSE(offers(u"File"_s, u"New Message"_s));
    open();
    EXPECT_TRUE(offers(u"File"_s, u"New Message"_s));
    EXPECT_TRUE(offers(u"Mailbox"_s, u"Get New Mail"_s));
    EXPECT_FALSE(offers(u"Message"_s, u"Move to Trash"_s));
    EXPECT_FALSE(offers(u"Tools"_s, u"Administration"_s));
    messages()->selectionModel()->select(messages()->model()->index(1, 0), QItemSelectionModel::ClearAndSelect);
    settle();
    EXPECT_TRUE(offers(u"Message"_s, u"Move to Trash"_s));
    settle();
    EXPECT_TRUE(offers(u"Message"_s, u"Reply"_s));
    state->navigationDestination = AppDestination::chat;
    settle();
    EXPECT_FALSE(offers(u"Message"_s, u"Reply"_s));
    EXPECT_FALSE(offers(u"Mailbox"_s, u"Get New Mail"_s));
}

TEST_F(WholeScreen, KeysOfTheMenusBelongToAFieldThatUsesThem) {
    open();
    messages()->selectionModel()->select(messages()->model()->index(1, 0), QItemSelectionModel::ClearAndSelect);
    settle();
    search()->setFocus();
    QTest::keyClicks(search(), u"two words"_s);
    QTest::keyClick(search(), Qt::Key_Backspace, Qt::ControlModifier);
    EXPECT_EQ(search()->text(), u"two "_s);
    QTest::keyClick(search(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(search()->selectedText(), u"two "_s);
    search()->clear();
    settle();
    // Moving the message to the trash would have been a request that nobody expects.
    server.assertSilence();
}

TEST_F(WholeScreen, TheEditMenuIsForWhatHasTheFocus) {
    open();
    search()->setFocus();
    EXPECT_TRUE(offers(u"Edit"_s, u"Paste"_s));
    messages()->setFocus();
    EXPECT_FALSE(offers(u"Edit"_s, u"Paste"_s));
    EXPECT_TRUE(offers(u"Edit"_s, u"Select All"_s));
}

TEST_F(WholeScreen, TheEditMenuIsStillForItWhenTheKeyboardOpensTheMenu) {
    open();
    messages()->selectionModel()->select(messages()->model()->index(1, 0), QItemSelectionModel::ClearAndSelect);
    settle();
    settle();
    auto *text = visibleNamed<PlainTextView>(*view, u"Message text"_s);
    ASSERT_TRUE(text);
    text->setFocus();
    QTest::keyClick(text, Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(QApplication::activePopupWidget());
    EXPECT_FALSE(text->hasFocus());
    EXPECT_FALSE(offers(u"Edit"_s, u"Paste"_s));
    EXPECT_TRUE(offers(u"Edit"_s, u"Copy"_s));
    choose(u"Edit"_s, u"Select All"_s);
    EXPECT_EQ(text->selectedText(), u"Hello"_s);
    messages()->setFocus();
    choose(u"Edit"_s, u"Select All"_s);
    EXPECT_EQ(messages()->selectionModel()->selectedIndexes().size(), 3);
}

TEST_F(WholeScreen, TheEditMenuReachesWhatIsAroundTheFocus) {
    open();
    auto *text = new QPlainTextEdit(u"words"_s, window.get());
    auto *inner = new QWidget(text);
    inner->setFocusPolicy(Qt::StrongFocus);
    text->show();
    inner->setFocus();
    choose(u"Edit"_s, u"Select All"_s);
    EXPECT_EQ(text->textCursor().selectedText(), u"words"_s);
}

TEST_F(WholeScreen, ListsTheKeysOnDemandEvenBeforeSigningIn) {
    QTest::keyClick(window.get(), Qt::Key_Slash, Qt::ControlModifier);
    settle();
    auto *sheet = window->findChild<KeyboardShortcutsView *>();
    ASSERT_TRUE(sheet && sheet->isVisible());
    EXPECT_TRUE(showsText(*sheet, u"Open in separate window"_s));
    EXPECT_TRUE(state->showKeyboardShortcuts);
    QTest::keyClick(sheet, Qt::Key_Escape);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_FALSE(state->showKeyboardShortcuts);
}

TEST_F(WholeScreen, NamesEverythingThatTakesTheFocus) {
    open();
    EXPECT_EQ(namelessControls(*view), QStringList());
    state->selectedEmailUID = 2;
    settle();
    EXPECT_EQ(namelessControls(*view), QStringList());
    state->navigationDestination = AppDestination::settings;
    settle();
    EXPECT_EQ(namelessControls(*view), QStringList());
}

TEST_F(WholeScreen, KeyboardComesBackToTheMailFromASection) {
    server.expect("GET", "/api/contacts").json(R"({"contacts": []})");
    open();
    ASSERT_TRUE(messages()->hasFocus());
    state->navigationDestination = AppDestination::contacts;
    settle();
    EXPECT_FALSE(messages());
    state->navigationDestination = std::nullopt;
    settle();
    ASSERT_TRUE(messages());
    EXPECT_TRUE(messages()->hasFocus()) << accessibleName(*QApplication::focusWidget()).toStdString();
}
