#include "send/SMTPConnection.h"

#include "http/APIError.h"
#include "mime/TextDecoding.h"

#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>

namespace {

constexpr std::size_t longestReply = 64 * 1024;

int codeOf(const std::string &line) {
    const bool isReply = line.size() >= 3 && line.find_first_not_of("0123456789") >= 3;
    return isReply ? std::stoi(line.substr(0, 3)) : 0;
}

} // namespace

SMTPConnection::SMTPConnection(const SMTPServer &server, std::chrono::milliseconds patience)
    : m_name(server.host + ":" + server.port)
    , m_patience(patience) {
    connect(server);
}

SMTPConnection::~SMTPConnection() {
    close(m_socket);
}

void SMTPConnection::fail(const std::string &what) const {
    throw APIError(502, "The mail server " + m_name + " " + what);
}

void SMTPConnection::connect(const SMTPServer &server) {
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *found = nullptr;
    if (const int error = getaddrinfo(server.host.c_str(), server.port.c_str(), &hints, &found))
        fail(std::string("cannot be found: ") + gai_strerror(error));
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> addresses(found, freeaddrinfo);
    for (const auto *address = found; address; address = address->ai_next) {
        if (connectTo(*address))
            return;
    }
    fail(std::string("cannot be reached: ") + std::strerror(errno));
}

bool SMTPConnection::connectTo(const addrinfo &address) {
    const int descriptor = socket(address.ai_family, address.ai_socktype | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (descriptor < 0)
        return false;
    pollfd connected{descriptor, POLLOUT, 0};
    int error = ::connect(descriptor, address.ai_addr, address.ai_addrlen) == 0 ? 0 : errno;
    if (error == EINPROGRESS) {
        socklen_t size = sizeof error;
        const bool inTime = poll(&connected, 1, static_cast<int>(m_patience.count())) > 0;
        if (!inTime || getsockopt(descriptor, SOL_SOCKET, SO_ERROR, &error, &size) != 0)
            error = ETIMEDOUT;
    }
    if (error == 0)
        m_socket = descriptor;
    else
        close(descriptor);
    errno = error;
    return error == 0;
}

void SMTPConnection::await(short events) const {
    pollfd ready{m_socket, events, 0};
    if (poll(&ready, 1, static_cast<int>(m_patience.count())) <= 0)
        fail("does not answer");
}

std::string SMTPConnection::readLine() {
    char piece[4096];
    for (;;) {
        if (const auto end = m_buffer.find('\n'); end != std::string::npos) {
            const auto line = m_buffer.substr(0, end);
            m_buffer.erase(0, end + 1);
            return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
        }
        await(POLLIN);
        const auto size = recv(m_socket, piece, sizeof piece, 0);
        if (size <= 0 || m_buffer.size() > longestReply)
            fail("has ended the conversation");
        m_buffer.append(piece, static_cast<std::size_t>(size));
    }
}

SMTPReply SMTPConnection::readReply() {
    SMTPReply reply;
    for (;;) {
        const auto line = readLine();
        reply.code = codeOf(line);
        if (reply.code == 0 || reply.lines.size() > longestReply)
            fail("does not speak SMTP: " + singleLine(validUTF8(line)));
        reply.lines += line + "\n";
        reply.text = singleLine(reply.text + " " + validUTF8(line.substr(std::min<std::size_t>(4, line.size()))));
        if (line.size() == 3 || line[3] != '-')
            return reply;
    }
}

SMTPReply SMTPConnection::command(const std::string &line) {
    write(line + "\r\n");
    return readReply();
}

void SMTPConnection::write(std::string_view bytes) {
    while (!bytes.empty()) {
        await(POLLOUT);
        const auto size = send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (size < 0 && errno != EAGAIN)
            fail("has ended the conversation");
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
    }
}
