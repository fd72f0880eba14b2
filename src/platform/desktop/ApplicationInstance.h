#pragma once

#include <QObject>

/// The one running instance of the program, known on the session bus as `com.corvanite.Corvanite` by the interface
/// `org.freedesktop.Application`.
class ApplicationInstance : public QObject {
    Q_OBJECT
public:
    enum class Role {
        /// This process owns the name; later starts are handed to it.
        primary,
        /// Another process owns it and has been asked to come to the front and to open the links.
        secondary,
        /// There is no session bus, or nobody who answers on it: this process minds its own business.
        alone
    };

    /// `urls` are what this start is to open.
    explicit ApplicationInstance(const QStringList &urls = {}, QObject *parent = nullptr);

    Role role() const { return m_role; }
    /// Tells from now on when the machine wakes up. For after the start: it asks the system's bus.
    void watchSleep();

Q_SIGNALS:
    /// The program was started again, or clicked on, while it runs.
    void activated();
    /// The desktop hands over a link, such as one that begins with "mailto:".
    void urlOpened(const QString &url);
    void wokeFromSleep();

public Q_SLOTS:
    // The methods of org.freedesktop.Application.
    Q_SCRIPTABLE void Activate(const QVariantMap &platformData);
    Q_SCRIPTABLE void Open(const QStringList &uris, const QVariantMap &platformData);

private Q_SLOTS:
    void prepareForSleep(bool isStarting);

private:
    Role m_role = Role::alone;

    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
};
