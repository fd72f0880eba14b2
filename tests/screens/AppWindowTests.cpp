#include "app/screens/AppWindow.h"

#include "app/AppState.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QApplication>
#include <QDialog>

using namespace Qt::StringLiterals;

namespace {

class WindowWithSheet : public ScreenTest {
protected:
    void SetUp() override { content->show(); }
    /// The desktop activates the window.
    void activate() {
        QEvent activation(QEvent::WindowActivate);
        QCoreApplication::sendEvent(&window, &activation);
        deliverQueuedEvents();
        deliverQueuedEvents();
    }

    static bool comesToFront(const QWidget &expected) {
        return spinUntil([&] { return QApplication::activeWindow() == &expected; });
    }

    AppWindow window{u"Corvanite"_s, std::make_shared<AppState>(), [] {}};
    QWidget *content = new QWidget(&window);
    QWidget other;
};

} // namespace

TEST_F(WindowWithSheet, ComesToTheFrontInItsPlace) {
    QDialog sheet(content);
    sheet.setWindowModality(Qt::WindowModal);
    activate();
    EXPECT_FALSE(sheet.isVisible());
    sheet.show();
    activate();
    EXPECT_TRUE(comesToFront(sheet));
    sheet.showMinimized();
    activate();
    EXPECT_FALSE(sheet.isMinimized());
    EXPECT_FALSE(sheet.isMinimized());
}

TEST_F(WindowWithSheet, OtherWindowsStayBehind) {
    QDialog tool(content);
    QDialog elsewhere(&other);
    elsewhere.setWindowModality(Qt::WindowModal);
    elsewhere.showMinimized();
    tool.showMinimized();
    activate();
    EXPECT_TRUE(tool.isMinimized());
    EXPECT_TRUE(elsewhere.isMinimized());
}
