#include "RawServer.h"

#include <QTcpSocket>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int patience = 20000; // milliseconds

QByteArray headerValue(const QByteArray &answer, const QByteArray &name) {
    const auto start = answer.indexOf("\r\n" + name + ": ");
    const auto from = start + 4 + name.size();
    return start < 0 ? QByteArray() : answer.mid(from, answer.indexOf('\r', from) - from);
}

} // namespace

RawServer::RawServer(const QString &address)
    : m_address(address) {
    const auto body = R"({"username":"demo","password":"corvanite"})"_ba;
    const auto answer =
        exchange("POST /api/auth/login HTTP/1.1\r\nContent-Type: application/json\r\nContent-Length: " +
                 QByteArray::number(body.size()) + "\r\nHost: localhost\r\nConnection: close\r\n\r\n" + body);
    m_sessionHeader = headerValue(answer, "Set-Cookie");
    if (m_sessionHeader.isEmpty())
        throw std::runtime_error("the server took nobody in");
}

QByteArray RawServer::get(const QByteArray &path) const {
    const auto answer =
        exchange("GET " + path + " HTTP/1.1\r\nAccept-Encoding: gzip, deflate, br\r\n" + commonHeaders() + "\r\n");
    return answer.mid(answer.indexOf("\r\n\r\n") + 4);
}

void RawServer::post(const QByteArray &path, const QByteArray &body) const {
    const auto answer = exchange("POST " + path + " HTTP/1.1\r\nContent-Type: application/json\r\nContent-Length: " +
                                 QByteArray::number(body.size()) + "\r\n" + commonHeaders() + "\r\n" + body);
    if (!answer.startsWith("HTTP/1.1 200"))
        throw std::runtime_error("the server refused a change");
}

QByteArray RawServer::commonHeaders() const {
    const auto cookie = m_sessionHeader.first(m_sessionHeader.indexOf(';'));
    return "Host: localhost\r\nConnection: close\r\nCookie: " + cookie + "\r\n";
}

QByteArray RawServer::exchange(const QByteArray &request) const {
    QTcpSocket socket;
    socket.connectToHost(m_address.host(), quint16(m_address.port()));
    if (!socket.waitForConnected(patience))
        throw std::runtime_error("the server does not answer");
    socket.write(request);
    while (socket.state() != QAbstractSocket::UnconnectedState && socket.waitForReadyRead(patience)) {
    }
    return socket.readAll();
}
