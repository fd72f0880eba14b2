#include "platform/HTTPCookieStorage.h"

#include "platform/AtomicFileWriter.h"
#include "platform/StandardPaths.h"

#include <QDateTime>
#include <QFile>
#include <QMutexLocker>
#include <QNetworkCookie>

using namespace Qt::StringLiterals;

/// Opens the matching rules and the list of Qt's jar to the storage.
class HTTPCookieStorage::Jar final : public QNetworkCookieJar {
public:
    using QNetworkCookieJar::allCookies;
    using QNetworkCookieJar::setAllCookies;
};

namespace {

class SharedJar final : public QNetworkCookieJar {
public:
    explicit SharedJar(HTTPCookieStorage &storage)
        : m_storage(storage) {}

    QList<QNetworkCookie> cookiesForUrl(const QUrl &url) const override { return m_storage.cookies(url); }

    bool setCookiesFromUrl(const QList<QNetworkCookie> &cookies, const QUrl &url) override {
        return m_storage.setCookies(cookies, url);
    }

private:
    HTTPCookieStorage &m_storage;
};

/// One cookie a line: its domain, a tab, and the rest in the form of the header "Set-Cookie", where some domains, such
/// as IPv6 addresses, could not be read back.
QByteArray cookieLine(const QNetworkCookie &cookie) {
    auto rest = cookie;
    rest.setDomain({});
    return cookie.domain().toUtf8() + '\t' + rest.toRawForm(QNetworkCookie::Full) + '\n';
}

QList<QNetworkCookie> cookiesOfLine(const QByteArray &line) {
    const auto tab = line.indexOf('\t');
    auto cookies = tab > 0 ? QNetworkCookie::parseCookies(line.sliced(tab + 1)) : QList<QNetworkCookie>();
    for (auto &cookie : cookies)
        cookie.setDomain(QString::fromUtf8(line.first(tab)));
    return cookies;
}

QList<QNetworkCookie> readCookies(const QString &path) {
    QFile file(path);
    QList<QNetworkCookie> cookies;
    if (!file.open(QIODevice::ReadOnly))
        return cookies;
    const auto now = QDateTime::currentDateTimeUtc();
    while (!file.atEnd())
        for (const auto &cookie : cookiesOfLine(file.readLine().trimmed()))
            if (cookie.isSessionCookie() || cookie.expirationDate() > now)
                cookies.append(cookie);
    return cookies;
}

} // namespace

HTTPCookieStorage &HTTPCookieStorage::shared() {
    static HTTPCookieStorage storage(dataFolder() + u"/cookies.txt"_s);
    return storage;
}

HTTPCookieStorage::HTTPCookieStorage(QString path)
    : m_path(std::move(path))
    , m_jar(std::make_unique<Jar>()) {
    m_jar->setAllCookies(readCookies(m_path));
}

HTTPCookieStorage::~HTTPCookieStorage() = default;

QList<QNetworkCookie> HTTPCookieStorage::cookies(const QUrl &url) const {
    const QMutexLocker lock(&m_mutex);
    return m_jar->cookiesForUrl(url);
}

bool HTTPCookieStorage::setCookies(const QList<QNetworkCookie> &cookies, const QUrl &url) {
    const QMutexLocker lock(&m_mutex);
    const auto before = m_jar->allCookies();
    const bool accepted = m_jar->setCookiesFromUrl(cookies, url);
    if (m_jar->allCookies() != before)
        save();
    return accepted;
}

void HTTPCookieStorage::remove(const QList<QNetworkCookie> &cookies) {
    const QMutexLocker lock(&m_mutex);
    for (const auto &cookie : cookies)
        m_jar->deleteCookie(cookie);
    if (!cookies.isEmpty())
        save();
}

std::unique_ptr<QNetworkCookieJar> HTTPCookieStorage::makeJar() {
    return std::make_unique<SharedJar>(*this);
}

void HTTPCookieStorage::save() const {
    QByteArray content;
    for (const auto &cookie : m_jar->allCookies())
        content += cookieLine(cookie);
    AtomicFileWriter::shared().write(m_path, content);
}
