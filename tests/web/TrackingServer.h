#pragma once

#include <QStringList>
#include <QTcpServer>

/// The sender of a mail who wants to know that it was read: notes every connection, request and name look-up.
class TrackingServer : public QTcpServer {
public:
    TrackingServer();

    /// An address of this server under a host name that is looked up; `path` begins with a slash.
    QString url(const QString &host, const QString &path) const;
    bool wasAskedFor(const QString &path) const { return paths.contains(path); }

    QStringList paths;
    QStringList headers;
    int connections = 0;

private:
    void accept();
    void answer(QTcpSocket *socket);
};

/// Host names below ".test" that this process has looked up since it was started.
QStringList lookedUpNames();
