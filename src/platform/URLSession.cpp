#include "platform/URLSession.h"

#include "platform/Completion.h"
#include "platform/HTTPCookieStorage.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslError>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The body of every request, often empty. The network module sends a request again, unasked, when its connection
/// closes: also a command that the server may have carried out, and even in the middle of an answer, whose first half
/// then passes as the whole. It does not when the body cannot be rewound. This one can only be when a question is
/// redirected. (For a moved command, status 307 or 308, the module now and then asks both places.)
class RequestBody final : public QIODevice {
public:
    explicit RequestBody(QByteArray content)
        : m_content(std::move(content)) {
        open(QIODevice::ReadOnly);
    }

    void setRedirected(bool redirected) { m_redirected = redirected; }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return m_content.size() - m_position + QIODevice::bytesAvailable(); }

    bool seek(qint64 position) override {
        if (m_redirected)
            m_position = position;
        return std::exchange(m_redirected, false);
    }

protected:
    qint64 readData(char *data, qint64 maximum) override {
        const auto size = std::min<qint64>(maximum, m_content.size() - m_position);
        if (size <= 0)
            return -1;
        std::copy_n(m_content.constData() + m_position, size, data);
        m_position += size;
        return size;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray m_content;
    bool m_redirected = false;
    qint64 m_position = 0;
};

QNetworkRequest networkRequest(const URLRequest &request) {
    QNetworkRequest result(request.url);
    for (const auto &[name, value] : request.headers)
        result.setRawHeader(name, value);
    if (request.ignoresCache)
        result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    return result;
}

/// Whether the answer is only the way to another one.
bool isRedirection(const QNetworkReply &reply) {
    constexpr int redirections[] = {301, 302, 303, 305, 307, 308};
    const auto status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    return std::ranges::count(redirections, status) && reply.hasRawHeader("Location") && !reply.isFinished();
}

QNetworkReply *send(QNetworkAccessManager &network, const URLRequest &request) {
    const auto content = request.body.value_or(QByteArray());
    auto networked = networkRequest(request);
    networked.setHeader(QNetworkRequest::ContentLengthHeader, content.size());
    networked.setAttribute(QNetworkRequest::DoNotBufferUploadDataAttribute, true);
    auto *body = new RequestBody(content);
    auto *reply = network.sendCustomRequest(networked, request.method, body);
    body->setParent(reply);
    if (request.method == "GET")
        QObject::connect(reply, &QNetworkReply::metaDataChanged, body,
                         [reply, body] { body->setRedirected(isRedirection(*reply)); });
    return reply;
}

URLError timedOut() {
    return {URLError::Code::timedOut, u"The request timed out."_s};
}

URLError cancelled() {
    return {URLError::Code::cancelled, u"The request was cancelled."_s};
}

} // namespace

URLSessionDataTask::URLSessionDataTask(QNetworkReply *reply, std::optional<Clock::Duration> timeout,
                                       ChallengeHandler challenge)
    : m_reply(reply)
    , m_timeout(timeout)
    , m_challenge(std::move(challenge)) {
    m_reply->setParent(this);
    connect(m_reply, &QNetworkReply::metaDataChanged, this, &URLSessionDataTask::readHeaders);
    connect(m_reply, &QNetworkReply::readyRead, this, &URLSessionDataTask::readBody);
    connect(m_reply, &QNetworkReply::uploadProgress, this, &URLSessionDataTask::restartTimeout);
    connect(m_reply, &QNetworkReply::sslErrors, this, &URLSessionDataTask::judgeCertificate);
    connect(m_reply, &QNetworkReply::finished, this, [this] { finish(replyError()); });
    restartTimeout();
}

URLSessionDataTask::~URLSessionDataTask() {
    m_finished = true;
    m_reply->disconnect(this);
    m_reply->abort();
}

void URLSessionDataTask::cancel() {
    QMetaObject::invokeMethod(
        this, [this] { finish(cancelled()); }, Qt::QueuedConnection);
}

void URLSessionDataTask::readHeaders() {
    restartTimeout();
    const auto status = m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute);
    if (m_finished || m_responded || !status.isValid() || isRedirection(*m_reply))
        return;
    m_responded = true;
    m_response.status = status.toInt();
    const auto type = m_reply->header(QNetworkRequest::ContentTypeHeader).toString();
    m_response.mediaType = type.section(u';', 0, 0).trimmed().toLower();
    const auto length = m_reply->header(QNetworkRequest::ContentLengthHeader);
    m_response.expectedLength = length.isValid() ? length.toLongLong() : -1;
    Q_EMIT responded();
}

void URLSessionDataTask::readBody() {
    restartTimeout();
    const auto bytes = m_reply->readAll();
    if (!m_finished && !bytes.isEmpty())
        Q_EMIT received(bytes);
}

void URLSessionDataTask::judgeCertificate(const QList<QSslError> &errors) {
    const AuthenticationChallenge challenge{m_reply->url().host(), AuthenticationChallenge::Method::serverTrust,
                                            !m_reply->sslConfiguration().peerCertificate().isNull()};
    if (m_challenge && m_challenge(challenge) == ChallengeDisposition::useCredential)
        m_reply->ignoreSslErrors(errors);
    else
        m_untrusted = true;
}

void URLSessionDataTask::restartTimeout() {
    if (m_timeout && !m_finished)
        m_silence = Clock::shared().after(*m_timeout, [this] { finish(timedOut()); });
}

void URLSessionDataTask::finish(std::optional<URLError> error) {
    if (m_finished)
        return;
    if (!error) {
        readHeaders();
        readBody();
    }
    m_finished = true;
    m_silence.reset();
    Q_EMIT completed(error);
}

bool URLSessionDataTask::endsWithConnection() const {
    return m_responded && m_response.expectedLength < 0 && !m_reply->hasRawHeader("Transfer-Encoding");
}

std::optional<URLError> URLSessionDataTask::replyError() const {
    using Code = URLError::Code;
    if (m_untrusted)
        return URLError(Code::untrustedServer,
                        u"The certificate of the server \"%1\" is not trusted. It may be self-signed or expired, or "
                        "somebody may be posing as the server."_s.arg(m_reply->url().host()));
    switch (m_reply->error()) {
    case QNetworkReply::NoError:
        return std::nullopt;
    case QNetworkReply::HostNotFoundError:
        return URLError(Code::cannotFindHost,
                        u"A server with the name \"%1\" could not be found."_s.arg(m_reply->url().host()));
    case QNetworkReply::ConnectionRefusedError:
        return URLError(Code::cannotConnect, u"Could not connect to the server."_s);
    case QNetworkReply::SslHandshakeFailedError:
        return URLError(
            Code::cannotConnect,
            u"The server \"%1\" does not answer securely. If it is meant to be reached without "
            "encryption, its address begins with http:// instead of https://."_s.arg(m_reply->url().host()));
    case QNetworkReply::ContentReSendError:
        if (endsWithConnection())
            return std::nullopt;
        [[fallthrough]];
    case QNetworkReply::RemoteHostClosedError:
        return URLError(Code::connectionLost, u"The network connection was lost."_s);
    case QNetworkReply::TimeoutError:
        return timedOut();
    case QNetworkReply::OperationCanceledError:
        return cancelled();
    default:
        break;
    }
    // What HTTP itself calls an error is an answer, judged by whoever asked.
    if (m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= 400)
        return std::nullopt;
    return URLError(Code::other, m_reply->errorString());
}

URLSession::URLSession(ChallengeHandler challenge)
    : m_network(std::make_unique<QNetworkAccessManager>())
    , m_challenge(std::move(challenge)) {
    m_network->setCookieJar(HTTPCookieStorage::shared().makeJar().release());
    m_network->setAutoDeleteReplies(false);
}

URLSession::~URLSession() {
    Q_EMIT invalidated();
}

std::unique_ptr<URLSessionDataTask> URLSession::dataTask(const URLRequest &request) {
    auto *reply = send(*m_network, request);
    connect(this, &URLSession::invalidated, reply, &QNetworkReply::abort);
    return std::unique_ptr<URLSessionDataTask>(new URLSessionDataTask(reply, request.timeout, m_challenge));
}

QCoro::Task<HTTPResponse> URLSession::data(URLRequest request, std::function<void(const HTTPResponse &)> progress,
                                           std::stop_token stop) {
    const auto limit = maximumBodySize;
    const auto task = dataTask(request);
    Completion<bool> ended;
    HTTPResponse response;
    QObject::connect(task.get(), &URLSessionDataTask::responded, task.get(), [&] {
        response = task->response();
        if (response.expectedLength > 0 && response.expectedLength <= limit)
            response.body.reserve(response.expectedLength);
        if (progress)
            progress(response);
    });
    QObject::connect(task.get(), &URLSessionDataTask::received, task.get(), [&](const QByteArray &bytes) {
        if (response.body.size() + bytes.size() > limit)
            return ended.fail(
                std::make_exception_ptr(URLError(URLError::Code::tooLarge, u"The server's answer is too large."_s)));
        response.body += bytes;
        if (progress)
            progress(response);
    });
    QObject::connect(task.get(), &URLSessionDataTask::completed, task.get(), [&](const std::optional<URLError> &error) {
        error ? ended.fail(std::make_exception_ptr(*error)) : ended.succeed(true);
    });
    const std::stop_callback stopped(stop, [&] { task->cancel(); });
    co_await ended;
    co_return response;
}
