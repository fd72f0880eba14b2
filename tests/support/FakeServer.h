#pragma once

#include <QHash>
#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>
#include <memory>
#include <optional>
#include <vector>

/// One request as it came over the wire.
struct FakeRequest {
    QByteArray method;
    /// Path and raw query, as sent.
    QByteArray target;
    /// Names in lower case.
    QList<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;

    /// Absent when the request has no such header. `name` in lower case.
    std::optional<QByteArray> header(const QByteArray &name) const;
};

/// An expected request and its answer. The answer is written down beforehand; or the exchange is held, and the test
/// sends bytes while the client waits.
class FakeExchange {
public:
    FakeExchange(QByteArray method, QByteArray target)
        : m_method(std::move(method))
        , m_target(std::move(target)) {}

    FakeExchange &json(const QByteArray &text, int status = 200);
    FakeExchange &answer(int status, const QByteArray &body = {}, const QByteArray &mediaType = {});
    /// One more header of the answer; to be called before `json` or `answer`.
    FakeExchange &header(const QByteArray &name, const QByteArray &value);
    FakeExchange &chunked(const QList<QByteArray> &pieces, const QByteArray &mediaType = "application/json");
    /// Exactly these bytes, whatever they are.
    FakeExchange &raw(const QByteArray &bytes);
    /// Closes the connection after the answer, or instead of one.
    FakeExchange &closing();
    /// No answer by itself: the test sends it, or never does.
    FakeExchange &held();
    /// May come any number of times, never included.
    FakeExchange &anyNumberOfTimes();

    bool hasArrived() const { return m_arrivals > 0; }
    int arrivals() const { return m_arrivals; }
    /// The last request that came; waits for the first.
    const FakeRequest &request();
    /// Whether the connection of the request has been closed by either side.
    bool isClosed() const { return hasArrived() && (!m_socket || m_socket->state() != QTcpSocket::ConnectedState); }

    /// Writes bytes into the connection of the request; waits for the request.
    void send(const QByteArray &bytes);
    /// Status line and headers of a held answer; "Content-Length" only if it is among the extra headers.
    void sendHead(int status, const QByteArray &mediaType, const QByteArray &extraHeaders = {});
    /// An answer's head and the start of an event stream.
    void startEventStream() { sendHead(200, "text/event-stream"); }
    void pushEvent(const QByteArray &name, const QByteArray &json);
    void close();

private:
    friend class FakeServer;
    bool expects(const FakeRequest &request) const;
    void arrive(FakeRequest request, QTcpSocket *socket);
    QByteArray text() const { return m_method + ' ' + m_target; }

    QByteArray m_method, m_target, m_extraHeaders;
    std::optional<QByteArray> m_answer;
    bool m_closing = false;
    bool m_held = false;
    bool m_repeats = false;
    int m_arrivals = 0;
    FakeRequest m_request;
    QPointer<QTcpSocket> m_socket;
};

/// A scripted HTTP server on a real socket, in the event loop of the test. Requests that nobody expected fail the test,
/// and so do expected ones that did not come by its end.
class FakeServer : public QTcpServer {
    Q_OBJECT
public:
    enum class Security { none, selfSigned };

    explicit FakeServer(Security security = Security::none);
    ~FakeServer() override;

    /// The base address of the server, without trailing slash.
    QString address() const;
    /// Makes the program talk to this server.
    void makeCurrent() const;

    /// Expected requests may come in any order. Lives as long as the server.
    FakeExchange &expect(const QByteArray &method, const QByteArray &target);
    /// Fails when a request comes that was sent before this call.
    void assertSilence();

    /// How many connections were ever made.
    int connectionCount() const { return m_connections; }
    /// Closes all connections, as a server does with idle ones, and waits until the clients have seen it.
    void closeConnections();
    /// Refuses new connections until `returnAgain`.
    void vanish();
    void returnAgain();

protected:
    void incomingConnection(qintptr descriptor) override;

private:
    QTcpSocket *makeSocket(qintptr descriptor);
    void read(QTcpSocket *socket);
    void handle(FakeRequest request, QTcpSocket *socket);

    const Security m_security;
    quint16 m_port = 0;
    int m_connections = 0;
    std::vector<std::unique_ptr<FakeExchange>> m_exchanges;
    QHash<QTcpSocket *, QByteArray> m_buffers;
};
