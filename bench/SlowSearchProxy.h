#pragma once

#include <QTcpServer>
#include <QThread>
#include <QUrl>
#include <atomic>

/// Stands between the program and the server and hands searches on with a delay, in a thread of its own.
class SlowSearchProxy {
public:
    explicit SlowSearchProxy(const QString &serverAddress);
    ~SlowSearchProxy();

    QString address() const { return m_address; }
    /// From the next search on.
    void setDelay(int milliseconds) { m_delay = milliseconds; }

private:
    void takeConnection();

    const QUrl m_server;
    QString m_address;
    std::atomic<int> m_delay = 0;
    QThread m_thread;
    QTcpServer m_listener;
};
