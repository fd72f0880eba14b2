#include "AccessibleTree.h"

#include "driver/AppDriver.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QEventLoop>

using namespace Qt::StringLiterals;

namespace {

constexpr auto accessible = "org.a11y.atspi.Accessible"_L1;
constexpr auto properties = "org.freedesktop.DBus.Properties"_L1;
constexpr auto rootPath = "/org/a11y/atspi/accessible/root"_L1;
constexpr auto connectionName = "accessible-tree"_L1;

// Bits of a node's state.
constexpr int focusable = 11;
constexpr int showing = 25;

} // namespace

struct AccessibleTree::Reference {
    QString service, path;
};

AccessibleTree::AccessibleTree() {
    auto session = QDBusConnection::sessionBus();
    const Reference launcher{u"org.a11y.Bus"_s, u"/org/a11y/bus"_s};
    const auto on = QVariant::fromValue(QDBusVariant(true));
    call(session, launcher, properties, u"Set"_s, {u"org.a11y.Status"_s, u"IsEnabled"_s, on});
    call(session, launcher, properties, u"Set"_s, {u"org.a11y.Status"_s, u"ScreenReaderEnabled"_s, on});
    const auto address = call(session, launcher, u"org.a11y.Bus"_s, u"GetAddress"_s).toString();
    if (!address.isEmpty())
        m_bus = QDBusConnection::connectToBus(address, connectionName);
}

AccessibleTree::~AccessibleTree() {
    m_bus.reset();
    QDBusConnection::disconnectFromBus(connectionName);
}

// The answer comes from this very process, so its event loop must go on meanwhile.
QVariant AccessibleTree::call(QDBusConnection &bus, const Reference &reference, const QString &interface,
                              const QString &method, const QVariantList &arguments) {
    auto message = QDBusMessage::createMethodCall(reference.service, reference.path, interface, method);
    message.setArguments(arguments);
    const QDBusPendingCallWatcher pending(bus.asyncCall(message));
    QEventLoop loop;
    QObject::connect(&pending, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    if (!pending.isFinished())
        loop.exec();
    return pending.isError() ? QVariant() : pending.reply().arguments().value(0);
}

QVariant AccessibleTree::property(const Reference &reference, const QString &name) {
    return call(*m_bus, reference, properties, u"Get"_s, {QString(accessible), name}).value<QDBusVariant>().variant();
}

std::vector<AccessibleTree::Reference> AccessibleTree::childrenOf(const Reference &reference) {
    const auto answer = call(*m_bus, reference, accessible, u"GetChildren"_s).value<QDBusArgument>();
    std::vector<Reference> children;
    if (answer.currentType() != QDBusArgument::ArrayType)
        return children;
    answer.beginArray();
    while (!answer.atEnd()) {
        QString service;
        QDBusObjectPath path;
        answer.beginStructure();
        answer >> service >> path;
        answer.endStructure();
        children.push_back({service, path.path()});
    }
    answer.endArray();
    return children;
}

std::optional<AccessibleTree::Reference> AccessibleTree::findApplication() {
    if (!m_bus || !m_bus->isConnected())
        return std::nullopt;
    std::optional<Reference> application;
    AppDriver::waitUntil([&] {
        const auto all = childrenOf({u"org.a11y.atspi.Registry"_s, rootPath});
        if (!all.empty())
            application = all.back();
        return application.has_value();
    });
    return application;
}

AccessibleNode AccessibleTree::readNode(const Reference &reference) {
    AccessibleNode node;
    node.role = call(*m_bus, reference, accessible, u"GetRoleName"_s).toString();
    node.name = property(reference, u"Name"_s).toString();
    const auto states = qdbus_cast<QList<uint>>(call(*m_bus, reference, accessible, u"GetState"_s)).value(0);
    node.isShowing = states & (1u << showing);
    node.isFocusable = states & (1u << focusable);
    if (node.role.startsWith("document"_L1))
        return node;
    for (const auto &child : childrenOf(reference))
        node.children.push_back(readNode(child));
    return node;
}

std::optional<AccessibleNode> AccessibleTree::read() {
    const auto application = findApplication();
    return application ? std::optional(readNode(*application)) : std::nullopt;
}
