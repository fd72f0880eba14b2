#pragma once

#include <QDBusConnection>
#include <QString>
#include <optional>
#include <vector>

/// A thing on the screen as a screen reader gets it over the accessibility bus.
struct AccessibleNode {
    QString role, name;
    bool isShowing = false, isFocusable = false;
    std::vector<AccessibleNode> children;
};

/// Reads what this process tells screen readers, over the bus as they do.
class AccessibleTree {
public:
    /// Switches accessibility on, as a screen reader does when it starts.
    AccessibleTree();
    ~AccessibleTree();

    /// The application with all its windows; documents of the web engine are left out. Absent when the program does not
    /// answer.
    std::optional<AccessibleNode> read();

private:
    struct Reference;

    std::optional<Reference> findApplication();
    std::vector<Reference> childrenOf(const Reference &reference);
    AccessibleNode readNode(const Reference &reference);
    QVariant call(QDBusConnection &bus, const Reference &reference, const QString &interface, const QString &method,
                  const QVariantList &arguments = {});
    QVariant property(const Reference &reference, const QString &name);

    std::optional<QDBusConnection> m_bus;
};
