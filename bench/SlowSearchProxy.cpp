#include "SlowSearchProxy.h"

#include <QTcpSocket>
#include <QTimer>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

bool isSearch(const QByteArray &request) {
    const auto line = request.first(std::max<qsizetype>(0, request.indexOf('\r')));
    return line.startsWith("GET /api/emails/list?") && line.contains("search=");
}

} // namespace

SlowSearchProxy::SlowSearchProxy(const QString &serverAddress)
    : m_server(serverAddress) {
    if (!m_listener.listen(QHostAddress::LocalHost))
        throw std::runtime_error("no port is free");
    m_address = u"http://127.0.0.1:%1"_s.arg(m_listener.serverPort());
    QObject::connect(&m_listener, &QTcpServer::newConnection, &m_listener, [this] { takeConnection(); });
    m_listener.moveToThread(&m_thread);
    m_thread.start();
}

SlowSearchProxy::~SlowSearchProxy() {
    QMetaObject::invokeMethod(
        &m_listener,
        [this, owner = QThread::currentThread()] {
            m_listener.close();
            qDeleteAll(m_listener.findChildren<QTcpSocket *>(Qt::FindDirectChildrenOnly));
            m_listener.moveToThread(owner);
        },
        Qt::BlockingQueuedConnection);
    m_thread.quit();
    m_thread.wait();
}

/// The program sends the next request of a connection only after the answer to the last, each in one piece.
void SlowSearchProxy::takeConnection() {
    auto *program = m_listener.nextPendingConnection();
    auto *server = new QTcpSocket(program);
    server->connectToHost(m_server.host(), quint16(m_server.port()));
    QObject::connect(program, &QTcpSocket::readyRead, server, [=, this] {
        const auto bytes = program->readAll();
        const int delay = isSearch(bytes) ? m_delay.load() : 0;
        QTimer::singleShot(delay, server, [=] { server->write(bytes); });
    });
    QObject::connect(server, &QTcpSocket::readyRead, program, [=] { program->write(server->readAll()); });
    QObject::connect(server, &QTcpSocket::disconnected, program, &QTcpSocket::disconnectFromHost);
    QObject::connect(program, &QTcpSocket::disconnected, program, &QObject::deleteLater);
}
