#include "web/TrackingServer.h"

#include <QMutex>
#include <QTcpSocket>

#include <dlfcn.h>
#include <netdb.h>

using namespace Qt::StringLiterals;

namespace {

QMutex namesMutex;
QStringList names;

QByteArray contentType(const QByteArray &path) {
    if (path.endsWith(".css"))
        return "text/css";
    if (path.endsWith(".svg"))
        return "image/svg+xml";
    if (path.endsWith(".js"))
        return "text/javascript";
    if (path.endsWith(".html"))
        return "text/html";
    return "application/octet-stream";
}

QByteArray content(const QByteArray &path) {
    if (path.contains("imported-by"))
        return "p { color: red; }";
    if (path.endsWith(".css"))
        return "@import url(imported-by" + path.mid(1) + "); body { background-image: url(background-of" + path.mid(1) +
               ".png); }";
    return "<svg xmlns='http://www.w3.org/2000/svg' width='10' height='10'/>";
}

} // namespace

// The web engine looks names up in this process. Names below ".test" lead to this machine, and are noted.
extern "C" int getaddrinfo(const char *node, const char *service, const addrinfo *hints, addrinfo **result) {
    using Resolver = int (*)(const char *, const char *, const addrinfo *, addrinfo **);
    static const auto systemResolver = reinterpret_cast<Resolver>(dlsym(RTLD_NEXT, "getaddrinfo"));
    if (!node || !QByteArray(node).endsWith(".test"))
        return systemResolver(node, service, hints, result);
    const QMutexLocker lock(&namesMutex);
    names.append(QString::fromLatin1(node));
    return systemResolver("127.0.0.1", service, hints, result);
}

QStringList lookedUpNames() {
    const QMutexLocker lock(&namesMutex);
    return names;
}

TrackingServer::TrackingServer() {
    listen(QHostAddress::LocalHost);
    connect(this, &QTcpServer::newConnection, this, &TrackingServer::accept);
}

QString TrackingServer::url(const QString &host, const QString &path) const {
    return u"http://%1:%2%3"_s.arg(host).arg(serverPort()).arg(path);
}

QUrl TrackingServer::serve(const QByteArray &html) {
    const auto path = "/page-" + QByteArray::number(m_pages.size()) + ".html";
    m_pages.insert(path, html);
    return url(u"127.0.0.1"_s, QString::fromLatin1(path));
}

void TrackingServer::accept() {
    while (auto *socket = nextPendingConnection()) {
        ++connections;
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { answer(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void TrackingServer::answer(QTcpSocket *socket) {
    const auto request = socket->readAll();
    const auto path = request.split(' ').value(1);
    paths.append(QString::fromLatin1(path));
    headers.append(QString::fromLatin1(request));
    const auto body = m_pages.value(path, content(path));
    socket->write("HTTP/1.1 200 OK\r\nContent-Type: " + contentType(path) +
                  "\r\nAccess-Control-Allow-Origin: *\r\nSet-Cookie: id=1\r\nCache-Control: no-store\r\n"
                  "Connection: close\r\nContent-Length: " +
                  QByteArray::number(body.size()) + "\r\n\r\n" + body);
    socket->disconnectFromHost();
}
