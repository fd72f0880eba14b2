#include "app/MacAppDelegate.h"

#include "app/AppStateFixture.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class AppDelegateTest : public CoreTest, protected AppStateFixture {
protected:
    void TearDown() override {
        state.reset();
        CoreTest::TearDown();
    }

    ManualClock clock;
    MacAppDelegate delegate;
};

} // namespace

TEST_F(AppDelegateTest, HandsOverWhatWaitedForTheWindow) {
    delegate.pendingQuickAction = QuickActionType::inbox;
    delegate.pendingEmail = PendingEmail{7, u"Work"_s};
    delegate.pendingChat = u"u2"_s;
    delegate.deliverPending();
    EXPECT_TRUE(delegate.pendingQuickAction && delegate.pendingEmail && delegate.pendingChat);
    delegate.appState = state;
    delegate.deliverPending();
    EXPECT_EQ(state->pendingShortcutAction.get(), QuickActionType::inbox);
    EXPECT_EQ(state->pendingOpenEmail.get(), (PendingEmail{7, u"Work"_s}));
    EXPECT_EQ(state->pendingOpenChat.get(), u"u2"_s);
    EXPECT_FALSE(delegate.pendingQuickAction || delegate.pendingEmail || delegate.pendingChat);

    state->pendingOpenChat = std::nullopt;
    delegate.deliverPending();
    EXPECT_EQ(state->pendingOpenChat.get(), std::nullopt);
}

TEST_F(AppDelegateTest, ChecksEveryMinuteWhileSomebodyIsSignedIn) {
    delegate.appState = state;
    delegate.didFinishLaunching();
    clock.advance(60s);
    settle();
    EXPECT_EQ(mailCheck.arrivals(), 0);
    beginSession();
    for (int minute = 1; minute <= 3; ++minute) {
        clock.advance(60s);
        settle();
        EXPECT_EQ(mailCheck.arrivals(), 1 + minute);
    }
    state->isAuthenticated = false;
    clock.advance(60s);
    settle();
    EXPECT_EQ(mailCheck.arrivals(), 4);
}

TEST_F(AppDelegateTest, ReconnectsAndChecksOnActivationAndWake) {
    delegate.appState = state;
    beginSession();
    delegate.didBecomeActive();
    settle();
    EXPECT_TRUE(spinUntil([this] { return stream.arrivals() == 2; }));
    EXPECT_EQ(mailCheck.arrivals(), 2);
    delegate.wokeFromSleep();
    settle();
    EXPECT_TRUE(spinUntil([this] { return stream.arrivals() == 3; }));
    EXPECT_EQ(mailCheck.arrivals(), 3);
}

TEST_F(AppDelegateTest, LeavesTheServerAloneWhileNobodyIsSignedIn) {
    delegate.didBecomeActive();
    delegate.appState = state;
    delegate.didBecomeActive();
    delegate.wokeFromSleep();
    state.reset();
    delegate.didBecomeActive();
    delegate.deliverPending();
    server.assertSilence();
    EXPECT_FALSE(stream.hasArrived() || mailCheck.hasArrived());
}

TEST_F(AppDelegateTest, OpensTheWindowAgain) {
    delegate.handleReopen();
    int opened = 0;
    delegate.openMainWindow = [&] { ++opened; };
    delegate.handleReopen();
    EXPECT_EQ(opened, 1);
}
