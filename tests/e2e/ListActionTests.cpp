#include "TestMaildir.h"
#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"
#include "mail/screens/EmailListView.h"
#include "ui/screens/Buttons.h"

#include <QListView>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

/// What is done to messages in the list, as the server and its disk see it.
class ListActions : public testing::Test {
protected:
    ListActions() {
        app.signIn(u"demo"_s, u"corvanite"_s);
        EXPECT_TRUE(app.waitForList());
        app.mainScreen().listView()->list()->setFocus();
    }

    EmailListState &list() { return app.mainScreen().listState(); }
    QStringList subjects() {
        QStringList shown;
        for (int number = 0; number < list().rows.rowCount(); ++number)
            shown.append(list().rows.row(number).subject);
        return shown;
    }
    bool waitForSubjects(const QStringList &wanted) {
        return AppDriver::waitUntil([&] { return subjects() == wanted; });
    }
    /// Selects the newest two messages.
    void selectTwo() {
        app.press(Qt::Key_Home);
        app.press(Qt::Key_Down, Qt::ShiftModifier);
        ASSERT_TRUE(AppDriver::waitUntil([&] { return list().viewModel->selectedEmails->size() == 2; }));
        AppDriver::settle();
    }

    TestMaildir maildir{4};
    DevServerProcess server{QStringList{u"--maildir"_s, maildir.path()}};
    AppDriver app{server.address()};
};

TEST_F(ListActions, MoveTheSelectionToTheTrashOnceConfirmed) {
    selectTwo();
    app.click(app.find<IconButton>(u"Move to Trash (⌘Delete)"_s));
    ASSERT_TRUE(AppDriver::waitUntil([&] { return app.find<QPushButton>(u"Move to Trash"_s) != nullptr; }));
    app.click(app.find<QPushButton>(u"Move to Trash"_s));
    EXPECT_TRUE(waitForSubjects({u"Message 2"_s, u"Message 1"_s}));
    ASSERT_TRUE(app.selectFolder(u"Trash"_s));
    EXPECT_THAT(subjects(), testing::UnorderedElementsAre(u"Message 4"_s, u"Message 3"_s));
}

TEST_F(ListActions, ArchiveWithTheArrowKeys) {
    app.press(Qt::Key_Home);
    AppDriver::settle();
    app.press(Qt::Key_Left);
    app.press(Qt::Key_Left);
    app.press(Qt::Key_Return);
    EXPECT_TRUE(waitForSubjects({u"Message 3"_s, u"Message 2"_s, u"Message 1"_s}));
    ASSERT_TRUE(app.selectFolder(u"Archive"_s));
    EXPECT_EQ(subjects(), QStringList{u"Message 4"_s});
}

TEST_F(ListActions, StarAMessageForTheFavorites) {
    const auto email = *list().email(list().rows.row(1).uid);
    list().actions->toggleStar(email);
    ASSERT_TRUE(AppDriver::waitUntil([&] { return list().rows.row(1).isFlagged; }));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return maildir.files().filter(u",FS"_s).size() == 1; }));
    app.state().selectedEmailUID = std::nullopt;
    auto *sidebar = app.find<QListView>(u"Folders"_s);
    const auto *model = sidebar->model();
    sidebar->setCurrentIndex(model->match(model->index(0, 0), Qt::DisplayRole, u"Favorites"_s).value(0));
    EXPECT_TRUE(waitForSubjects({u"Message 3"_s}));
}

TEST_F(ListActions, FindTheMailOfToday) {
    maildir.deliver(u"Fresh"_s);
    ASSERT_TRUE(AppDriver::waitUntil([&] { return subjects().size() == 5; }));
    list().filters->chooseDays(1);
    EXPECT_TRUE(AppDriver::waitUntil([&] { return subjects().value(0) == u"Fresh"_s && subjects().size() < 5; }));
    ASSERT_TRUE(app.find<Chip>(u"Clear"_s));
    app.click(app.find<Chip>(u"Clear"_s));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return subjects().size() == 5; }));
}

TEST_F(ListActions, ReadThePageAgainAfterABreak) {
    ASSERT_TRUE(AppDriver::waitUntil([this] { return app.state().sseClient.isConnected.get(); }));
    server.kill();
    ASSERT_TRUE(AppDriver::waitUntil([this] { return !app.state().sseClient.isConnected; }));
    maildir.deliver(u"During the break"_s);
    server.restart();
    EXPECT_TRUE(AppDriver::waitUntil([&] { return subjects().value(0) == u"During the break"_s; }));
}

} // namespace
