#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

/// Talks to the server without any of the program's code, so that its own time can be told from the program's.
class RawServer {
public:
    /// Signs in; fails with `std::runtime_error`.
    explicit RawServer(const QString &address);

    /// The session as the header "Set-Cookie" hands it out.
    QByteArray sessionHeader() const { return m_sessionHeader; }
    /// The body of the answer to a GET request.
    QByteArray get(const QByteArray &path) const;
    /// Sends JSON; fails with `std::runtime_error` where the server refuses.
    void post(const QByteArray &path, const QByteArray &body) const;

private:
    /// The header lines that every request of the session has.
    QByteArray commonHeaders() const;
    QByteArray exchange(const QByteArray &request) const;

    QUrl m_address;
    QByteArray m_sessionHeader;
};
