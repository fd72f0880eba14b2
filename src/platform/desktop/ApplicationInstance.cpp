#include "platform/desktop/ApplicationInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

using namespace Qt::StringLiterals;

namespace {

const auto serviceName = u"com.corvanite.Corvanite"_s;
const auto objectPath = u"/com/corvanite/Corvanite"_s;
const auto interfaceName = u"org.freedesktop.Application"_s;
constexpr int activationTimeout = 2000; // milliseconds

/// Whether another process answered that it comes to the front.
bool handOver(const QStringList &urls, QDBusConnection &bus) {
    const auto method = urls.isEmpty() ? u"Activate"_s : u"Open"_s;
    auto call = QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName, method);
    if (!urls.isEmpty())
        call << urls;
    call << QVariantMap();
    return bus.call(call, QDBus::Block, activationTimeout).type() == QDBusMessage::ReplyMessage;
}

} // namespace

ApplicationInstance::ApplicationInstance(const QStringList &urls, QObject *parent)
    : QObject(parent) {
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.registerObject(objectPath, this, QDBusConnection::ExportScriptableSlots);
    if (bus.registerService(serviceName))
        m_role = Role::primary;
    else if (handOver(urls, bus))
        m_role = Role::secondary;
}

void ApplicationInstance::watchSleep() {
    QDBusConnection::systemBus().connect(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s,
                                         u"org.freedesktop.login1.Manager"_s, u"PrepareForSleep"_s, this,
                                         SLOT(prepareForSleep(bool)));
}

void ApplicationInstance::Activate(const QVariantMap &) {
    Q_EMIT activated();
}

void ApplicationInstance::Open(const QStringList &uris, const QVariantMap &) {
    Q_EMIT activated();
    for (const auto &uri : uris)
        Q_EMIT urlOpened(uri);
}

void ApplicationInstance::prepareForSleep(bool isStarting) {
    if (!isStarting)
        Q_EMIT wokeFromSleep();
}
