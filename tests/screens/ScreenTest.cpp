#include "screens/ScreenTest.h"

namespace {

QtMessageHandler nextHandler = nullptr;

void dropPlatformNoise(QtMsgType type, const QMessageLogContext &context, const QString &text) {
    if (!text.startsWith(QLatin1StringView("This plugin does not support ")))
        nextHandler(type, context, text);
}

} // namespace

ScreenTest::ScreenTest() {
    nextHandler = qInstallMessageHandler(dropPlatformNoise);
}
