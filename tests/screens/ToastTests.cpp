#include "screens/ScreenTest.h"
#include "ui/screens/ToastPresenter.h"
#include "ui/screens/ToastView.h"

#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class ToastTest : public ScreenTest {
protected:
    ToastTest() {
        host.resize(600, 400);
        host.show();
    }

    ToastView *view() const { return host.findChild<ToastView *>(); }

    ManualClock clock;
    QWidget host;
    ToastPresenter presenter{&host};
    QSignalSpy expired{&presenter, &ToastPresenter::expired};
};

TEST_F(ToastTest, GoesAwayAfterThreeSeconds) {
    presenter.setToast(ToastMessage(u"Subject copied to clipboard"_s, ToastType::success));
    EXPECT_TRUE(view()->isVisible());
    EXPECT_EQ(view()->accessibleName(), u"Subject copied to clipboard"_s);
    clock.advance(2999ms);
    EXPECT_EQ(expired.count(), 0);
    clock.advance(1ms);
    EXPECT_EQ(expired.count(), 1);
    EXPECT_EQ(presenter.toast(), std::nullopt);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !view()->isVisible(); }));
}

TEST_F(ToastTest, ASecondOneReplacesTheFirstAndInheritsItsTime) {
    presenter.setToast(ToastMessage(u"first"_s, ToastType::info));
    clock.advance(2s);
    presenter.setToast(ToastMessage(u"second"_s, ToastType::error));
    EXPECT_EQ(view()->accessibleName(), u"second"_s);
    EXPECT_EQ(host.findChildren<ToastView *>().size(), 1);
    clock.advance(1s);
    EXPECT_EQ(expired.count(), 1);
    EXPECT_EQ(clock.scheduledCount(), 0);
}

TEST_F(ToastTest, OneClearedByTheScreenStartsNoMoreTimers) {
    presenter.setToast(ToastMessage(u"first"_s, ToastType::info));
    presenter.setToast(std::nullopt);
    EXPECT_EQ(clock.scheduledCount(), 0);
    presenter.setToast(ToastMessage(u"second"_s, ToastType::info));
    clock.advance(2999ms);
    EXPECT_EQ(expired.count(), 0) << "a new one has its full time";
}

TEST_F(ToastTest, AnExpiredOneIsNotShownAgainButTheSameWordsAre) {
    const ToastMessage toast(u"No emails to check"_s, ToastType::info);
    presenter.setToast(toast);
    clock.advance(3s);
    presenter.setToast(toast);
    EXPECT_EQ(presenter.toast(), std::nullopt);
    presenter.setToast(ToastMessage(toast.message, toast.type));
    EXPECT_TRUE(presenter.toast().has_value());
}

TEST_F(ToastTest, StaysThirtyTwoAboveTheBottomOfItsScreen) {
    presenter.setToast(ToastMessage(u"Blocked"_s, ToastType::success));
    // The window holds the card and 15 around it for the shadow.
    const auto distance = [this] {
        return host.mapToGlobal(QPoint(0, host.height())).y() - (view()->y() + view()->height() - 15);
    };
    EXPECT_EQ(distance(), 32);
    host.resize(800, 600);
    EXPECT_EQ(distance(), 32);
    EXPECT_NEAR(view()->geometry().center().x(), host.mapToGlobal(host.rect().center()).x(), 1);
    host.move(40, 30);
    EXPECT_EQ(distance(), 32);
}

TEST_F(ToastTest, HidesAndComesBackWithItsScreen) {
    presenter.setToast(ToastMessage(u"Blocked"_s, ToastType::success));
    host.hide();
    EXPECT_FALSE(view()->isVisible());
    host.show();
    EXPECT_TRUE(view()->isVisible());
}

TEST_F(ToastTest, NeverTakesTheFocusOrTheMouse) {
    presenter.setToast(ToastMessage(u"Blocked"_s, ToastType::success));
    EXPECT_TRUE(view()->testAttribute(Qt::WA_ShowWithoutActivating));
    EXPECT_TRUE(view()->windowFlags() & Qt::WindowTransparentForInput);
    EXPECT_TRUE(view()->isWindow());
}

} // namespace
