#pragma once

#include <QMutex>
#include <QNetworkCookieJar>
#include <memory>

/// The one cookie jar of the process, shared by all sessions and kept in a file that only its owner can read, so that a
/// restart keeps the session. Thread-safe.
class HTTPCookieStorage {
public:
    static HTTPCookieStorage &shared();

    explicit HTTPCookieStorage(QString path);
    ~HTTPCookieStorage();

    QList<QNetworkCookie> cookies(const QUrl &url) const;
    bool setCookies(const QList<QNetworkCookie> &cookies, const QUrl &url);
    void remove(const QList<QNetworkCookie> &cookies);

    /// A jar for one network access manager, which takes ownership of it.
    std::unique_ptr<QNetworkCookieJar> makeJar();

private:
    class Jar;
    void save() const;

    const QString m_path;
    mutable QMutex m_mutex;
    std::unique_ptr<Jar> m_jar;
};
