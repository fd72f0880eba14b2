#include "support/CoreTest.h"

#include <QApplication>

int main(int argc, char **argv) {
    const TestHome home;
    testing::InitGoogleTest(&argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // The web engine has tests of its own, on a display.
    qputenv("QTWEBENGINEPROCESS_PATH", "/nowhere");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
