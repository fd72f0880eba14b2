#include "mail/FaviconStore.h"

#include "net/ServerAddress.h"
#include "net/TrustManager.h"
#include "platform/BackgroundWork.h"
#include "platform/Tasks.h"
#include "platform/URLSession.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QCoroFuture>
#include <QImageReader>

using namespace Qt::StringLiterals;

namespace {

constexpr int cachedDomains = 2000;
/// A shorter answer is no picture.
constexpr qint64 shortestIcon = 101;
constexpr qint64 longestIcon = 1 << 20;
constexpr auto retryDelay = std::chrono::minutes(1);
/// In pixels: what claims to be larger is not decoded at all.
constexpr int largestSide = 1024;
constexpr int keptSide = 64;

QUrl faviconURL(const QString &domain) {
    QString service = QStringLiteral(CORVANITE_FAVICON_SERVICE);
    if (service.isEmpty())
        service = currentServerAddress();
    const auto name = QString::fromLatin1(QUrl::toPercentEncoding(domain));
    return QUrl(service + u"/faviconV2?client=SOCIAL&type=FAVICON&fallback_opts=TYPE,SIZE,URL&url=https://"_s + name +
                u"&size=64"_s);
}

/// Null when the bytes are not a raster picture of a sensible size.
QImage decodedIcon(QByteArray bytes) {
    static const QSet<QByteArray> formats{"png", "ico", "jpeg", "gif", "bmp", "webp"};
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const auto size = reader.size();
    if (!formats.contains(reader.format()) || size.width() > largestSide || size.height() > largestSide)
        return {};
    const auto image = reader.read();
    return image.isNull() ? image : image.scaled(keptSide, keptSide, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

FaviconStore &FaviconStore::shared() {
    static FaviconStore store;
    return store;
}

FaviconStore::FaviconStore()
    : m_icons(cachedDomains) {
    qAddPostRoutine([] { shared().m_session.reset(); });
}

FaviconStore::~FaviconStore() = default;

QImage FaviconStore::icon(const QString &domain) {
    if (domain.isEmpty())
        return {};
    if (const auto *known = m_icons.object(domain))
        return *known;
    const auto retry = m_retryAt.find(domain);
    const bool mayTry = retry == m_retryAt.end() || Clock::shared().uptime() >= retry->second;
    if (mayTry && m_fetching.insert(domain).second)
        launch(fetch(domain));
    return {};
}

void FaviconStore::keep(const QString &domain, const QImage &icon) {
    m_icons.insert(domain, new QImage(icon));
    if (!icon.isNull())
        Q_EMIT iconLoaded(domain);
}

QCoro::Task<> FaviconStore::fetch(QString domain) {
    if (!m_session) {
        m_session = std::make_unique<URLSession>(
            [](const AuthenticationChallenge &challenge) { return TrustManager::shared().handle(challenge); });
        m_session->maximumBodySize = longestIcon;
    }
    URLRequest request;
    request.url = faviconURL(domain);
    std::optional<HTTPResponse> response;
    try {
        response = co_await m_session->data(std::move(request));
    } catch (const URLError &error) {
        if (error.code() == URLError::Code::tooLarge)
            response = HTTPResponse();
        else
            m_retryAt[domain] = Clock::shared().uptime() + retryDelay;
    }
    if (response && (response->status != 200 || response->body.size() < shortestIcon)) {
        keep(domain, {});
    } else if (response) {
        const auto decode = [bytes = response->body] { return decodedIcon(bytes); };
        const auto icon = co_await runInBackground(decode);
        keep(domain, icon);
    }
    m_fetching.erase(domain);
}
