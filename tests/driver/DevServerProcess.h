#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

/// A development server of one's own on a free port, over a state folder that goes away with it.
class DevServerProcess {
public:
    /// `arguments` go to the server behind the port and the state folder. Fails with `std::runtime_error`.
    explicit DevServerProcess(const QStringList &arguments = {});
    ~DevServerProcess();

    /// Base address, such as "http://127.0.0.1:41234".
    QString address() const { return m_address; }
    QString stateFolder() const { return m_state.path(); }

    /// How many requests for this path it has answered with success; needs the argument "--verbose".
    int requests(const QString &path);

    /// Ends the server at once, without a chance to tidy up.
    void kill();
    /// Starts it again on the same port and folder.
    void restart();

private:
    void start(const QString &port);

    QTemporaryDir m_state;
    QStringList m_arguments;
    QProcess m_process;
    QString m_address;
    QString m_log;
};
