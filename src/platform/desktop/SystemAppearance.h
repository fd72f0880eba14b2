#pragma once

#include <QDBusMessage>
#include <QObject>

/// Whether the desktop prefers dark windows, by the settings portal (`org.freedesktop.appearance`, `color-scheme`).
/// Without a portal nothing is ever emitted.
class SystemAppearance : public QObject {
    Q_OBJECT
public:
    explicit SystemAppearance(QObject *parent = nullptr);

Q_SIGNALS:
    /// Once when the portal has answered, and at each change.
    void prefersDarkChanged(bool prefersDark);

private Q_SLOTS:
    void settingChanged(const QDBusMessage &signal);

private:
    void ask();
};
