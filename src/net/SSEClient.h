#pragma once

#include "net/SSEParser.h"
#include "platform/ObservableObject.h"
#include "platform/URLSession.h"

#include <QThreadPool>

/// Keeps one connection to the server's event stream and reconnects by itself, with back-off, until told to stop.
/// Main thread only.
class SSEClient : public ObservableObject {
    Q_OBJECT
public:
    using EventHandler = std::function<void(const QString &name, const QJsonObject &data)>;

    SSEClient();
    ~SSEClient() override;

    Published<bool> isConnected{this, false};
    EventHandler onEvent;

    /// Drops the present connection and opens a new one to the server with this base address.
    void connect(const QString &serverURL);
    /// Stops everything, a pending reconnection included.
    void disconnect();

private:
    void receiveResponse();
    void receiveData(const QByteArray &bytes);
    void complete(const std::optional<URLError> &error);
    void scheduleReconnect(const QString &address);
    void deliver(const QString &name, const QJsonObject &data);

    std::unique_ptr<URLSession> m_session;
    std::unique_ptr<URLSessionDataTask> m_task;
    SSEParser m_parser;
    /// One thread, so that events keep their order; a large one must not hold up the main thread.
    QThreadPool m_parsing;
    ScheduledWorkPtr m_reconnectWorkItem;
    int m_reconnectAttempt = 0;
};
