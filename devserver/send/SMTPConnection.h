#pragma once

#include <chrono>
#include <string>
#include <string_view>

struct SMTPServer {
    std::string host;
    std::string port;
};

struct SMTPReply {
    int code = 0;
    /// The server's words, without the codes, on one line.
    std::string text;
    /// As they came, for what an extension tells.
    std::string lines;

    bool isPositive() const { return code >= 200 && code < 400; }
};

/// One conversation with an SMTP server (RFC 5321). A server that cannot be reached, hangs up or keeps silent fails
/// with an APIError of status 502.
class SMTPConnection {
public:
    /// `patience` is how long the server may take for each answer, and for each piece that it takes of a message.
    SMTPConnection(const SMTPServer &server, std::chrono::milliseconds patience);
    ~SMTPConnection();
    SMTPConnection(const SMTPConnection &) = delete;
    SMTPConnection &operator=(const SMTPConnection &) = delete;

    SMTPReply readReply();
    SMTPReply command(const std::string &line);
    void write(std::string_view bytes);

private:
    void connect(const SMTPServer &server);
    bool connectTo(const struct addrinfo &address);
    void await(short events) const;
    std::string readLine();
    [[noreturn]] void fail(const std::string &what) const;

    std::string m_name;
    std::chrono::milliseconds m_patience;
    int m_socket = -1;
    std::string m_buffer;
};
