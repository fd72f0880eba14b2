#include "platform/desktop/SystemAppearance.h"

#include <QDBusConnection>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

using namespace Qt::StringLiterals;

namespace {

const auto portal = u"org.freedesktop.portal.Desktop"_s;
const auto portalPath = u"/org/freedesktop/portal/desktop"_s;
const auto settingsInterface = u"org.freedesktop.portal.Settings"_s;
const auto appearance = u"org.freedesktop.appearance"_s;
const auto colorScheme = u"color-scheme"_s;

/// The portal wraps the answer of "Read" in a variant more than once.
bool meansDark(QVariant value) {
    while (value.canConvert<QDBusVariant>())
        value = value.value<QDBusVariant>().variant();
    return value.toUInt() == 1;
}

} // namespace

SystemAppearance::SystemAppearance(QObject *parent)
    : QObject(parent) {
    QDBusConnection::sessionBus().connect(portal, portalPath, settingsInterface, u"SettingChanged"_s, this,
                                          SLOT(settingChanged(QDBusMessage)));
    ask();
}

void SystemAppearance::ask() {
    auto call = QDBusMessage::createMethodCall(portal, portalPath, settingsInterface, u"Read"_s);
    call << appearance << colorScheme;
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<QDBusVariant> reply = *watcher;
        watcher->deleteLater();
        if (reply.isValid())
            Q_EMIT prefersDarkChanged(meansDark(reply.value().variant()));
    });
}

void SystemAppearance::settingChanged(const QDBusMessage &signal) {
    const auto setting = signal.arguments();
    if (setting.size() == 3 && setting[0] == appearance && setting[1] == colorScheme)
        Q_EMIT prefersDarkChanged(meansDark(setting[2]));
}
