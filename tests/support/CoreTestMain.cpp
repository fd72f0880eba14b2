#include "support/CoreTest.h"

#include <QCoreApplication>

int main(int argc, char **argv) {
    const TestHome home;
    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
