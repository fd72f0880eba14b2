#include "MainThread.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <stdexcept>

double MainThread::runUntil(const std::function<bool()> &condition) {
    QElapsedTimer timer;
    timer.start();
    QEventLoop loop;
    bool isReached = false;
    const auto look = [&] {
        isReached = isReached || condition();
        if (isReached)
            loop.quit();
    };
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, &loop, look);
    QTimer::singleShot(20000, &loop, &QEventLoop::quit);
    loop.exec();
    if (!isReached)
        throw std::runtime_error("the program did not come so far");
    return double(timer.nsecsElapsed()) / 1e6;
}

void MainThread::run(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}
