#include "app/screens/CorvaniteApp.h"

#include "app/AppStateFixture.h"
#include "mail/screens/EmailDetailView.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QApplication>

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
