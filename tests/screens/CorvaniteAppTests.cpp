#include "app/screens/CorvaniteApp.h"

#include "app/AppStateFixture.h"
#include "mail/screens/EmailDetailView.h"
#include "platform/StandardPaths.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QApplication>
#include <QFile>
#include <QThreadPool>

using namespace Qt::StringLiterals;

namespace {

class Program : public ScreenTest, protected AppStateFixture {
protected:
    Program() {
        state = app->appState();
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/emails/read/7?folder=INBOX")
            .json(R"({"uid": 7, "body_text": "Hello"})")
            .anyNumberOfTimes();
    }
    void TearDown() override {
        settle();
        app.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    using Send = SendOutcomes::Send;
    /// Asks the program to quit while a message is being sent.
    std::unique_ptr<Send> quitWhileSending() {
        app->openMainWindow();
        other.show();
        auto send = std::make_unique<Send>(state->sendOutcomes);
        EXPECT_FALSE(quits());
        EXPECT_FALSE(app->mainWindow()->isVisible() || other.isVisible());
        return send;
    }
    static bool quits() {
        QEvent quit(QEvent::Quit);
        QCoreApplication::sendEvent(qApp, &quit);
        return quit.isAccepted();
    }
    static QWidget *emailWindow() {
        for (auto *window : QApplication::topLevelWidgets())
            if (window->isVisible() && window->windowTitle() == u"Email"_s)
                return window;
        return nullptr;
    }

    QWidget other;
    std::unique_ptr<CorvaniteApp> app = std::make_unique<CorvaniteApp>();
};

} // namespace

TEST_F(Program, OpensAMessageWithoutAskingForASelection) {
    app->openEmailWindow({7, u"INBOX"_s});
    auto *window = emailWindow();
    ASSERT_TRUE(window);
    EXPECT_TRUE(window->findChild<EmailDetailView *>()->isVisible());
    EXPECT_FALSE(showsText(*window, u"No email selected"_s));
}

TEST_F(Program, TakesWhatIsSharedWithoutComingToTheFront) {
    server.expect("GET", "/api/auth/me").answer(401).anyNumberOfTimes();
    server.expect("GET", "/api/auth/registration-status").answer(500).anyNumberOfTimes();
    QFile list(*groupContainerFolder(applicationGroupName()) + u"/shared_items.json"_s);
    ASSERT_TRUE(list.open(QFile::WriteOnly) && list.write(R"([{"type": "text", "value": "a"}])") > 0);
    list.close();
    app->launch();
    QThreadPool::globalInstance()->waitForDone();
    EXPECT_FALSE(list.exists()) << "nobody has taken it";
    settle();
    EXPECT_EQ(state->sharedBody.get(), u"a"_s);
}

TEST_F(Program, QuitsOnceTheLastMessageIsSent) {
    auto first = quitWhileSending();
    auto last = std::make_unique<Send>(state->sendOutcomes);
    first->succeeded();
    first.reset();
    settle();
    EXPECT_FALSE(quits());
    QMetaObject::invokeMethod(
        app.get(),
        [&] {
            last->succeeded();
            last.reset();
        },
        Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(last, nullptr);
}

TEST_F(Program, GoesOnWhenAMessageCouldNotBeSent) {
    auto failing = quitWhileSending();
    const Send running(state->sendOutcomes);
    failing.reset();
    settle();
    EXPECT_TRUE(app->mainWindow()->isVisible());
    EXPECT_TRUE(other.isVisible());
}

TEST_F(Program, GoesOnWhenItIsOpenedBeforeItHasQuit) {
    auto send = quitWhileSending();
    app->delegate().handleReopen();
    app->openMainWindow();
    EXPECT_TRUE(app->mainWindow()->isVisible());
    EXPECT_TRUE(other.isVisible());
    QMetaObject::invokeMethod(
        app.get(),
        [&] {
            send->succeeded();
            send.reset();
        },
        Qt::QueuedConnection);
    settle();
    EXPECT_TRUE(app->mainWindow()->isVisible());
}
