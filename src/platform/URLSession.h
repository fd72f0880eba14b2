#pragma once

#include "platform/Clock.h"
#include "platform/Error.h"

#include <QCoroTask>
#include <QNetworkRequest>
#include <QObject>
#include <QUrl>
#include <optional>
#include <stop_token>

class QNetworkAccessManager;
class QNetworkReply;
class QSslError;

/// A failure below HTTP: no network, a time-out, a refused certificate, a cancelled request.
class URLError : public Error {
public:
    enum class Code {
        cancelled,
        timedOut,
        cannotFindHost,
        cannotConnect,
        connectionLost,
        untrustedServer,
        tooLarge,
        other
    };

    URLError(Code code, QString description)
        : Error(std::move(description))
        , m_code(code) {}

    Code code() const { return m_code; }

private:
    Code m_code;
};

struct URLRequest {
    QUrl url;
    QByteArray method = "GET";
    QList<std::pair<QByteArray, QByteArray>> headers;
    std::optional<QByteArray> body;
    /// The longest silence of the server before the request fails; absent waits for ever.
    std::optional<Clock::Duration> timeout = std::chrono::seconds(60);
    bool ignoresCache = false;
};

struct HTTPResponse {
    /// 0 when the answer was not HTTP.
    int status = 0;
    /// Lower-cased, without parameters.
    QString mediaType;
    /// -1 when the server did not say.
    qint64 expectedLength = -1;
    QByteArray body;
};

/// What a server asks of the client before it is talked to.
struct AuthenticationChallenge {
    enum class Method { serverTrust, other };

    QString host;
    Method method = Method::other;
    bool hasServerTrust = false;
};

enum class ChallengeDisposition { useCredential, performDefaultHandling };

/// Decides on a server's certificate. Called on the session's thread, answers at once.
using ChallengeHandler = std::function<ChallengeDisposition(const AuthenticationChallenge &)>;

/// One request. Tells of its answer piece by piece and ends with exactly one `completed`, whatever happens, unless it
/// is destroyed first. Lives on the session's thread.
class URLSessionDataTask : public QObject {
    Q_OBJECT
public:
    ~URLSessionDataTask() override;

    /// Status and headers; valid once `responded` was emitted.
    const HTTPResponse &response() const { return m_response; }
    /// Ends the task with the error `cancelled`, from the event loop.
    void cancel();

Q_SIGNALS:
    void responded();
    void received(const QByteArray &bytes);
    void completed(const std::optional<URLError> &error);

private:
    friend class URLSession;
    URLSessionDataTask(QNetworkReply *reply, std::optional<Clock::Duration> timeout, ChallengeHandler challenge);

    void readHeaders();
    void readBody();
    void judgeCertificate(const QList<QSslError> &errors);
    void restartTimeout();
    void finish(std::optional<URLError> error);
    /// Whether the answer has neither a length nor chunks, so that the end of the connection is its own.
    bool endsWithConnection() const;
    std::optional<URLError> replyError() const;

    QNetworkReply *m_reply;
    std::optional<Clock::Duration> m_timeout;
    ChallengeHandler m_challenge;
    ScheduledWorkPtr m_silence;
    HTTPResponse m_response;
    bool m_responded = false;
    bool m_finished = false;
    bool m_untrusted = false;
};

/// HTTP requests over kept connections and the shared cookie store. Belongs to the thread that made it; its end cancels
/// the requests that are under way.
class URLSession : public QObject {
    Q_OBJECT
public:
    explicit URLSession(ChallengeHandler challenge);
    ~URLSession() override;

    /// Sends the request at once.
    std::unique_ptr<URLSessionDataTask> dataTask(const URLRequest &request);

    /// Status and whole body; fails with a `URLError`. `progress` is told the bytes so far after each piece.
    QCoro::Task<HTTPResponse> data(URLRequest request, std::function<void(const HTTPResponse &soFar)> progress = {},
                                   std::stop_token stop = {});

    /// A body longer than this, in bytes, fails: an endless answer must not eat the memory.
    qint64 maximumBodySize = qint64(512) << 20;

Q_SIGNALS:
    void invalidated();

private:
    std::unique_ptr<QNetworkAccessManager> m_network;
    ChallengeHandler m_challenge;
};
