#include "TestMaildir.h"
#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"
#include "mail/screens/EmailListView.h"

#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class Reading : public testing::Test {
protected:
    explicit Reading(const QStringList &serverArguments = {})
        : server(QStringList{u"--maildir"_s, maildir.path()} + serverArguments) {
        app.signIn(u"demo"_s, u"corvanite"_s);
        EXPECT_TRUE(app.waitForList());
    }

    const EmailListModel &rows() { return app.mainScreen().listState().rows; }
    QListView *list() { return app.mainScreen().listView()->list(); }

    bool waitForFirstSubject(const QString &subject) {
        return AppDriver::waitUntil([&] { return rows().rowCount() > 0 && rows().row(0).subject == subject; });
    }

    TestMaildir maildir{120};
    DevServerProcess server;
    AppDriver app{server.address()};
};

TEST_F(Reading, PagesForthAndBackThroughAFolder) {
    EXPECT_EQ(rows().rowCount(), 50);
    EXPECT_EQ(rows().row(0).subject, u"Message 120"_s);
    app.click(app.find(u"Next page"_s));
    EXPECT_TRUE(waitForFirstSubject(u"Message 70"_s));
    app.click(app.find(u"Next page"_s));
    EXPECT_TRUE(waitForFirstSubject(u"Message 20"_s));
    EXPECT_EQ(rows().rowCount(), 20);
    EXPECT_FALSE(app.find(u"Next page"_s)->isEnabled());
    app.click(app.find(u"Previous page"_s));
    EXPECT_TRUE(waitForFirstSubject(u"Message 70"_s));
}

TEST_F(Reading, SearchesWhileThePersonTypes) {
    app.find<QLineEdit>(u"Search emails…"_s)->setFocus();
    app.type(u"body of message 77."_s);
    EXPECT_TRUE(waitForFirstSubject(u"Message 77"_s));
    EXPECT_EQ(rows().rowCount(), 1);
    app.press(Qt::Key_A, Qt::ControlModifier);
    app.press(Qt::Key_Backspace);
    EXPECT_TRUE(waitForFirstSubject(u"Message 120"_s));
}

TEST_F(Reading, ShowsNewMailByItselfAndKeepsTheReadersPlace) {
    ASSERT_TRUE(app.openMessage(u"Message 110"_s));
    AppDriver::settle();
    list()->verticalScrollBar()->setValue(500);
    const auto *topRow = &rows().row(list()->indexAt({20, 20}).row());
    const auto topSubject = topRow->subject;

    maildir.deliver(u"Fresh from the server"_s);

    ASSERT_TRUE(waitForFirstSubject(u"Fresh from the server"_s));
    EXPECT_TRUE(rows().row(0).isUnread);
    AppDriver::settle();
    EXPECT_EQ(rows().row(list()->indexAt({20, 20}).row()).subject, topSubject) << "the list jumped";
    ASSERT_EQ(list()->selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(rows().row(list()->currentIndex().row()).subject, u"Message 110"_s);
}

TEST_F(Reading, FollowsWhatAnotherProgramReads) {
    const auto file = maildir.deliver(u"Read elsewhere"_s);
    ASSERT_TRUE(waitForFirstSubject(u"Read elsewhere"_s));
    ASSERT_TRUE(rows().row(0).isUnread);
    maildir.markSeen(file);
    EXPECT_TRUE(AppDriver::waitUntil([&] { return !rows().row(0).isUnread; }));
}

TEST_F(Reading, MarksAnOpenedMessageAsReadOnDisk) {
    const auto file = maildir.deliver(u"Open me"_s, u"The words inside."_s);
    ASSERT_TRUE(waitForFirstSubject(u"Open me"_s));
    ASSERT_TRUE(app.openRow(0));
    EXPECT_EQ(app.mainScreen().detailState().viewModel->email.get()->body_text.value_or(QString()).trimmed(),
              u"The words inside."_s);
    EXPECT_FALSE(rows().row(0).isUnread);
    EXPECT_TRUE(AppDriver::waitUntil([&] { return maildir.files().contains(file + u":2,S"_s); }));
}

TEST_F(Reading, CountsUnreadMailInTheSidebar) {
    const auto unread = [this] {
        return app.state().folders->empty() ? -1 : app.state().folders->front().unseen.value_or(-1);
    };
    maildir.deliver(u"One"_s);
    maildir.deliver(u"Two"_s);
    EXPECT_TRUE(AppDriver::waitUntil([&] { return unread() == 2; }));
    ASSERT_TRUE(waitForFirstSubject(u"Two"_s));
    ASSERT_TRUE(app.openMessage(u"Two"_s));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return unread() == 1; }));
}

TEST_F(Reading, OpensTheNextMessageWithTheArrowKeys) {
    ASSERT_TRUE(app.openRow(0));
    EXPECT_TRUE(app.waitForBody([this] { app.press(Qt::Key_Down); }));
    EXPECT_EQ(app.mainScreen().detailState().subjectText(), u"Message 119"_s);
    app.press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(AppDriver::waitUntil([this] {
        return app.mainScreen().detailState().content() == EmailDetailState::Content::nothingSelected;
    })) << "several selected messages show none";
}

TEST_F(Reading, SaysWhyAMessageDoesNotOpenAndTriesAgain) {
    ASSERT_TRUE(app.openRow(0));
    server.kill();
    app.press(Qt::Key_Down);
    auto &detail = app.mainScreen().detailState();
    ASSERT_TRUE(AppDriver::waitUntil([&] { return detail.content() == EmailDetailState::Content::failure; }));
    EXPECT_EQ(detail.placeholder().title, u"Couldn't Load This Email"_s);
    EXPECT_EQ(detail.placeholder().message, u"Could not connect to the server."_s);
    server.restart();
    AppDriver::settle();
    EXPECT_TRUE(app.waitForBody([this] { app.click(app.find(u"Try Again"_s)); }));
}

TEST_F(Reading, RecoversItsStreamWhenTheServerReturns) {
    ASSERT_TRUE(AppDriver::waitUntil([this] { return app.state().sseClient.isConnected.get(); }));
    server.kill();
    ASSERT_TRUE(AppDriver::waitUntil([this] { return !app.state().sseClient.isConnected; }));
    server.restart();
    ASSERT_TRUE(AppDriver::waitUntil([this] { return app.state().sseClient.isConnected.get(); }));
    maildir.deliver(u"After the break"_s);
    EXPECT_TRUE(waitForFirstSubject(u"After the break"_s));
}

class SlowReading : public Reading {
protected:
    SlowReading()
        : Reading({u"--latency"_s, u"150"_s}) {}
};

TEST_F(SlowReading, ShowsTheFolderThatWasChosenLast) {
    auto &state = app.state();
    for (const auto &folder : {u"Empty"_s, u"INBOX"_s, u"Empty"_s}) {
        state.navigateToFolder = folder;
        ASSERT_TRUE(AppDriver::waitUntil([&] { return !state.navigateToFolder.get(); }));
    }
    ASSERT_TRUE(app.waitForList());
    EXPECT_EQ(app.mainScreen().listState().content(), EmailListState::Content::empty);
    EXPECT_EQ(rows().rowCount(), 0) << "rows of the inbox came after the choice of the other folder";
}

} // namespace
