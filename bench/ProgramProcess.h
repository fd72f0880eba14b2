#pragma once

#include <QProcess>
#include <QTemporaryDir>

class RawServer;

/// The folders in which the program finds its settings and its session.
class Profile {
public:
    /// Knows the server's address.
    explicit Profile(const QString &address);
    /// Keeps the session that this server has opened.
    void storeSession(const RawServer &server, const QString &address);

    QProcessEnvironment environment() const;

private:
    QString file(const QString &name) const;

    QTemporaryDir m_folder;
};

/// The program as a process of its own, from its start to its end.
class ProgramProcess {
public:
    explicit ProgramProcess(const Profile &profile);
    ~ProgramProcess();

    pid_t id() const { return pid_t(m_process.processId()); }

private:
    QProcess m_process;
};
