#include "Correspondent.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const auto arguments = QApplication::arguments();
    if (arguments.value(1) == QStringLiteral("--correspondent"))
        return runCorrespondent(arguments.value(2));
    return RUN_ALL_TESTS();
}
