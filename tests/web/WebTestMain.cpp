#include <QApplication>
#include <QTemporaryDir>
#include <gtest/gtest.h>

int main(int argc, char **argv) {
    const QTemporaryDir home;
    qputenv("HOME", home.path().toLocal8Bit());
    testing::InitGoogleTest(&argc, argv);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
