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
    Program() { state = app->appState(); }
    void TearDown() override {
        settle();
        app.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    std::unique_ptr<CorvaniteApp> app = std::make_unique<CorvaniteApp>();
};

QWidget *emailWindow() {
    for (auto *window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowTitle() == u"Email"_s)
            return window;
    return nullptr;
}

} // namespace

TEST_F(Program, OpensAMessageWithoutAskingForASelection) {
    server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
    server.expect("GET", "/api/emails/read/7?folder=INBOX").json(R"({"uid": 7, "body_text": "Hello"})");
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
