#include "platform/desktop/FileSharing.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QGuiApplication>
#include <QUrl>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

/// How the portal wants to be told over which window to ask.
QString portalWindow(const QWidget *window) {
    const bool isX11 = QGuiApplication::platformName() == "xcb"_L1;
    return isX11 ? u"x11:"_s + QString::number(window->window()->winId(), 16) : QString();
}

QDBusMessage chooserCall(const QFile &file, const QWidget *window) {
    auto call =
        QDBusMessage::createMethodCall(u"org.freedesktop.portal.Desktop"_s, u"/org/freedesktop/portal/desktop"_s,
                                       u"org.freedesktop.portal.OpenURI"_s, u"OpenFile"_s);
    const QVariantMap options{{u"ask"_s, true}, {u"writable"_s, false}};
    call << portalWindow(window) << QVariant::fromValue(QDBusUnixFileDescriptor(file.handle())) << options;
    return call;
}

} // namespace

void shareFile(const QString &path, const QWidget *window) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    auto *asking =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(chooserCall(file, window)), qApp);
    QObject::connect(asking, &QDBusPendingCallWatcher::finished, asking, [asking, path] {
        asking->deleteLater();
        if (asking->isError())
            QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    });
}
