#pragma once

#include <QStringList>
#include <QTcpServer>
#include <QUrl>

/// The sender of a mail who wants to know that it was read: notes every connection, request and name look-up.
class TrackingServer : public QTcpServer {
public:
    TrackingServer();

    /// An address of this server under a host name that is looked up; `path` begins with a slash.
    QString url(const QString &host, const QString &path) const;
    bool wasAskedFor(const QString &path) const { return paths.contains(path); }

    /// Gives `html` to whoever asks for it; returns its address.
    QUrl serve(const QByteArray &html);

    QStringList paths;
    QStringList headers;
    int connections = 0;

private:
    void accept();
    void answer(QTcpSocket *socket);

    QHash<QByteArray, QByteArray> m_pages;
};

/// Host names below ".test" that this process has looked up since it was started.
QStringList lookedUpNames();
