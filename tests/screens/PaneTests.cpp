#include "screens/ScreenTest.h"
#include "ui/screens/MacPaneDivider.h"
#include "ui/screens/MailColumns.h"
#include "ui/screens/SidebarSplitView.h"

#include <QAccessible>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class PaneTest : public ScreenTest {
protected:
    std::optional<double> stored() const { return defaults.number(u"macMailListWidth"_s); }

    UserDefaults defaults{temporaryPath(u"defaults.json"_s)};
};

/// The divider between two empty columns in a window of 1000.
class DividerTest : public PaneTest {
protected:
    DividerTest() { open(1000); }

    void open(int width) {
        list = new QWidget;
        message = new QWidget;
        columns = std::make_unique<MailColumns>(list, message, defaults);
        divider = columns->divider();
        columns->resize(width, 400);
        columns->show();
    }

    /// The widget moves under the pointer, so points are given in the columns' coordinates.
    QPoint at(int x) const { return divider->mapFrom(columns.get(), QPoint(x, 200)); }

    QWidget *list = nullptr;
    QWidget *message = nullptr;
    std::unique_ptr<MailColumns> columns;
    MacPaneDivider *divider = nullptr;
};

TEST_F(DividerTest, ColumnsStandSideBySide) {
    EXPECT_EQ(list->geometry(), QRect(0, 0, 360, 400));
    EXPECT_EQ(divider->geometry(), QRect(360, 0, 16, 400));
    EXPECT_EQ(message->geometry(), QRect(376, 0, 624, 400));
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(DividerTest, ANarrowWindowShowsANarrowerListAndForgetsNothing) {
    storeListWidth(defaults, 500);
    open(700);
    EXPECT_EQ(list->width(), 364);
    EXPECT_EQ(stored(), 500);
    columns->resize(1000, 400);
    EXPECT_EQ(list->width(), 500);
}

TEST_F(DividerTest, DragMovesItAndStoresTheWidthAtTheEnd) {
    QTest::mousePress(divider, Qt::LeftButton, {}, at(368));
    QTest::mouseMove(divider, at(408));
    EXPECT_EQ(list->width(), 400);
    EXPECT_EQ(stored(), std::nullopt);
    QTest::mouseMove(divider, at(448));
    QTest::mouseRelease(divider, Qt::LeftButton, {}, at(448));
    EXPECT_EQ(list->width(), 440);
    EXPECT_EQ(stored(), 440);
}

TEST_F(DividerTest, DragIsHeldBetweenTheLimits) {
    QTest::mousePress(divider, Qt::LeftButton, {}, at(368));
    QTest::mouseMove(divider, at(20));
    EXPECT_EQ(list->width(), 260);
    QTest::mouseMove(divider, at(990));
    EXPECT_EQ(list->width(), 664);
    QTest::mouseRelease(divider, Qt::LeftButton, {}, at(990));
    EXPECT_EQ(stored(), 664);
}

TEST_F(DividerTest, AClickThatTremblesIsNoDrag) {
    QTest::mousePress(divider, Qt::LeftButton, {}, at(368));
    QTest::mouseMove(divider, at(369));
    QTest::mouseRelease(divider, Qt::LeftButton, {}, at(369));
    EXPECT_EQ(list->width(), 360);
    EXPECT_EQ(stored(), std::nullopt);
}

TEST_F(DividerTest, DragBeginsFromWhatIsSeen) {
    storeListWidth(defaults, 900);
    open(1000);
    QTest::mousePress(divider, Qt::LeftButton, {}, at(672));
    QTest::mouseMove(divider, at(662));
    QTest::mouseRelease(divider, Qt::LeftButton, {}, at(662));
    EXPECT_EQ(stored(), 654);
}

TEST_F(DividerTest, DoubleClickBringsTheUsualWidthBack) {
    storeListWidth(defaults, 500);
    open(1000);
    QTest::mouseDClick(divider, Qt::LeftButton);
    EXPECT_EQ(list->width(), 360);
    EXPECT_EQ(stored(), 360);
    open(636);
    QTest::mouseDClick(divider, Qt::LeftButton);
    EXPECT_EQ(stored(), 300);
}

TEST_F(DividerTest, ArrowKeysStepAndStoreEvenAtTheLimit) {
    QTest::keyClick(divider, Qt::Key_Right);
    EXPECT_EQ(stored(), 380);
    QTest::keyClick(divider, Qt::Key_Left);
    EXPECT_EQ(stored(), 360);
    open(596);
    QTest::keyClick(divider, Qt::Key_Right);
    EXPECT_EQ(stored(), 260);
    EXPECT_EQ(list->width(), 260);
}

TEST_F(DividerTest, SpeaksToAssistiveTechnology) {
    auto *accessible = QAccessible::queryAccessibleInterface(divider);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Email list width"_s);
    EXPECT_EQ(accessible->text(QAccessible::Value), u"360 points"_s);
    EXPECT_EQ(accessible->text(QAccessible::Description),
              u"Drag left or right to resize. Double-click to reset. Arrow keys adjust while focused."_s);
    EXPECT_EQ(divider->toolTip(), u"Drag to resize list and viewer · Double-click to reset"_s);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
    EXPECT_EQ(stored(), 380);
    EXPECT_EQ(accessible->text(QAccessible::Value), u"380 points"_s);
    accessible->valueInterface()->setCurrentValue(379);
    EXPECT_EQ(stored(), 360);
}

class SidebarTest : public PaneTest {
protected:
    ManualClock clock;
};

TEST_F(SidebarTest, KeepsItsWidthForTheNextStart) {
    {
        SidebarSplitView view(new QWidget, new QWidget, defaults);
        view.resize(1200, 600);
        view.show();
        EXPECT_EQ(view.sizes().constFirst(), 240);
        QTest::mousePress(view.handle(1), Qt::LeftButton, {}, QPoint(2, 100));
        QTest::mouseMove(view.handle(1), QPoint(42, 100));
        QTest::mouseRelease(view.handle(1), Qt::LeftButton, {}, QPoint(2, 100));
        clock.advance(1s);
        EXPECT_EQ(view.sizes().constFirst(), 280);
    }
    SidebarSplitView next(new QWidget, new QWidget, defaults);
    next.resize(1200, 600);
    next.show();
    EXPECT_EQ(next.sizes().constFirst(), 280);
}

TEST_F(SidebarTest, KeepsTheWidthOfADragThatTheEndInterrupts) {
    {
        SidebarSplitView view(new QWidget, new QWidget, defaults);
        view.resize(1200, 600);
        view.show();
        QTest::mousePress(view.handle(1), Qt::LeftButton, {}, QPoint(2, 100));
        QTest::mouseMove(view.handle(1), QPoint(42, 100));
        EXPECT_EQ(defaults.integer(u"Corvanite.Sidebar"_s), std::nullopt);
    }
    EXPECT_EQ(defaults.integer(u"Corvanite.Sidebar"_s), 280);
}

TEST_F(SidebarTest, IsNeverNarrowerOrWiderThanItMayBe) {
    defaults.set(u"Corvanite.Sidebar"_s, 9000);
    SidebarSplitView view(new QWidget, new QWidget, defaults);
    view.resize(1200, 600);
    view.show();
    EXPECT_EQ(view.sizes().constFirst(), 340);
    view.setSizes({10, 1190});
    EXPECT_EQ(view.sizes().constFirst(), 205);
}

} // namespace
