#include "support/FakeServer.h"

#include "net/APIClient.h"
#include "net/ServerAddress.h"
#include "platform/UserDefaults.h"
#include "support/Await.h"
#include "support/SelfSignedCertificate.h"

#include <QSslConfiguration>
#include <QSslSocket>
#include <gtest/gtest.h>
#include <sys/socket.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray statusLine(int status) {
    return "HTTP/1.1 " + QByteArray::number(status) + " Status\r\n";
}

QByteArray typeHeader(const QByteArray &mediaType) {
    return mediaType.isEmpty() ? QByteArray() : "Content-Type: " + mediaType + "\r\n";
}

/// The first whole request at the start of the bytes, which it takes out of them.
std::optional<FakeRequest> takeRequest(QByteArray &bytes) {
    const auto headEnd = bytes.indexOf("\r\n\r\n");
    if (headEnd < 0)
        return std::nullopt;
    auto lines = bytes.first(headEnd).split('\n');
    const auto start = lines.takeFirst().trimmed().split(' ');
    FakeRequest request{start.value(0), start.value(1), {}, {}};
    for (const auto &line : lines) {
        const auto colon = line.indexOf(':');
        request.headers.emplaceBack(line.first(colon).toLower(), line.sliced(colon + 1).trimmed());
    }
    const auto length = request.header("content-length").value_or("0").toLongLong();
    if (bytes.size() < headEnd + 4 + length)
        return std::nullopt;
    request.body = bytes.sliced(headEnd + 4, length);
    bytes.remove(0, headEnd + 4 + length);
    return request;
}

} // namespace

std::optional<QByteArray> FakeRequest::header(const QByteArray &name) const {
    for (const auto &[key, value] : headers)
        if (key == name)
            return value;
    return std::nullopt;
}

FakeExchange &FakeExchange::json(const QByteArray &text, int status) {
    return answer(status, text, "application/json");
}

FakeExchange &FakeExchange::answer(int status, const QByteArray &body, const QByteArray &mediaType) {
    return raw(statusLine(status) + typeHeader(mediaType) + m_extraHeaders +
               "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body);
}

FakeExchange &FakeExchange::header(const QByteArray &name, const QByteArray &value) {
    m_extraHeaders += name + ": " + value + "\r\n";
    return *this;
}

FakeExchange &FakeExchange::chunked(const QList<QByteArray> &pieces, const QByteArray &mediaType) {
    auto text = statusLine(200) + typeHeader(mediaType) + m_extraHeaders + "Transfer-Encoding: chunked\r\n\r\n";
    for (const auto &piece : pieces)
        text += QByteArray::number(piece.size(), 16) + "\r\n" + piece + "\r\n";
    return raw(text + "0\r\n\r\n");
}

FakeExchange &FakeExchange::raw(const QByteArray &bytes) {
    m_answer = bytes;
    return *this;
}

FakeExchange &FakeExchange::closing() {
    m_closing = true;
    return *this;
}

FakeExchange &FakeExchange::held() {
    m_held = true;
    return *this;
}

FakeExchange &FakeExchange::anyNumberOfTimes() {
    m_repeats = true;
    return *this;
}

bool FakeExchange::expects(const FakeRequest &request) const {
    return (m_repeats || !hasArrived()) && request.method == m_method && request.target == m_target;
}

void FakeExchange::arrive(FakeRequest request, QTcpSocket *socket) {
    ++m_arrivals;
    m_request = std::move(request);
    m_socket = socket;
    if (m_answer)
        send(*m_answer);
    if (m_closing)
        close();
    EXPECT_TRUE(m_answer || m_closing || m_held) << "no answer was given to " << text().toStdString();
}

const FakeRequest &FakeExchange::request() {
    EXPECT_TRUE(spinUntil([this] { return hasArrived(); })) << "never came: " << text().toStdString();
    return m_request;
}

void FakeExchange::send(const QByteArray &bytes) {
    request();
    if (!m_socket)
        return;
    m_socket->write(bytes);
    m_socket->flush();
}

void FakeExchange::sendHead(int status, const QByteArray &mediaType, const QByteArray &extraHeaders) {
    send(statusLine(status) + typeHeader(mediaType) + extraHeaders + "\r\n");
}

void FakeExchange::pushEvent(const QByteArray &name, const QByteArray &json) {
    send("event: " + name + "\ndata: " + json + "\n\n");
}

void FakeExchange::close() {
    request();
    if (m_socket)
        m_socket->disconnectFromHost();
}

FakeServer::FakeServer(Security security)
    : m_security(security) {
    returnAgain();
    m_port = serverPort();
}

FakeServer::~FakeServer() {
    vanish();
    for (const auto &exchange : m_exchanges)
        EXPECT_TRUE(exchange->hasArrived() || exchange->m_repeats) << "never came: " << exchange->text().toStdString();
}

QString FakeServer::address() const {
    const auto scheme = m_security == Security::none ? u"http"_s : u"https"_s;
    return u"%1://127.0.0.1:%2"_s.arg(scheme).arg(m_port);
}

void FakeServer::makeCurrent() const {
    UserDefaults::standard().set(u"serverURL"_s, address());
}

FakeExchange &FakeServer::expect(const QByteArray &method, const QByteArray &target) {
    return *m_exchanges.emplace_back(std::make_unique<FakeExchange>(method, target));
}

void FakeServer::assertSilence() {
    // What was sent before goes the same way, so it has come in by the time this one is answered.
    auto &last = expect("GET", "/silence").answer(200);
    URLSession session(nullptr);
    const auto url = QUrl(address() + u"/silence"_s);
    if (currentServerAddress() == address())
        EXPECT_EQ(failureOf(APIClient::shared().getData(u"silence"_s)), QString());
    else
        EXPECT_EQ(failureOf(session.data({.url = url})), QString());
    EXPECT_TRUE(last.hasArrived());
}

void FakeServer::closeConnections() {
    for (auto *socket : m_buffers.keys())
        shutdown(int(socket->socketDescriptor()), SHUT_WR);
    EXPECT_TRUE(spinUntil([this] { return m_buffers.isEmpty(); })) << "a client keeps its connection";
}

void FakeServer::vanish() {
    close();
    for (auto *socket : m_buffers.keys())
        socket->abort();
}

void FakeServer::returnAgain() {
    if (!listen(QHostAddress::LocalHost, m_port))
        ADD_FAILURE() << "cannot listen: " << qPrintable(errorString());
}

QTcpSocket *FakeServer::makeSocket(qintptr descriptor) {
    if (m_security == Security::none) {
        auto *plain = new QTcpSocket(this);
        plain->setSocketDescriptor(descriptor);
        return plain;
    }
    auto *secure = new QSslSocket(this);
    secure->setSocketDescriptor(descriptor);
    const auto identity = selfSignedCertificate();
    secure->setLocalCertificate(identity.certificate);
    secure->setPrivateKey(identity.key);
    secure->startServerEncryption();
    return secure;
}

void FakeServer::incomingConnection(qintptr descriptor) {
    ++m_connections;
    auto *socket = makeSocket(descriptor);
    m_buffers.insert(socket, {});
    connect(socket, &QTcpSocket::readyRead, this, [this, socket] { read(socket); });
    connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
        m_buffers.remove(socket);
        socket->deleteLater();
    });
}

void FakeServer::read(QTcpSocket *socket) {
    m_buffers[socket] += socket->readAll();
    while (m_buffers.contains(socket)) {
        auto request = takeRequest(m_buffers[socket]);
        if (!request)
            return;
        handle(std::move(*request), socket);
    }
}

void FakeServer::handle(FakeRequest request, QTcpSocket *socket) {
    const auto expected =
        std::ranges::find_if(m_exchanges, [&](const auto &exchange) { return exchange->expects(request); });
    if (expected != m_exchanges.end())
        return (*expected)->arrive(std::move(request), socket);
    ADD_FAILURE() << "unexpected request: " << request.method.toStdString() << ' ' << request.target.toStdString();
    socket->write("HTTP/1.1 599 Unexpected\r\nContent-Length: 0\r\n\r\n");
}
