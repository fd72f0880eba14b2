#include "net/APIClient.h"

#include "net/ServerAddress.h"
#include "net/TrustManager.h"
#include "platform/HTTPCookieStorage.h"
#include "platform/StandardPaths.h"
#include "platform/UserDefaults.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QNetworkCookie>

using namespace Qt::StringLiterals;

namespace {

const std::pair<QByteArray, QByteArray> acceptsJSON{"Accept", "application/json"};
const std::pair<QByteArray, QByteArray> carriesJSON{"Content-Type", "application/json"};
constexpr auto progressInterval = std::chrono::milliseconds(50);

/// The text that a failed request shows: the server's own words when it sent any.
QString failureText(const HTTPResponse &response) {
    const auto answer = QJsonDocument::fromJson(response.body).object();
    const auto words = answer.contains("message"_L1) ? answer.value("message"_L1) : answer.value("error"_L1);
    return words.isString() ? words.toString() : u"Request failed (%1)"_s.arg(response.status);
}

QString queryText(const APIClient::Query &query) {
    // What a query may hold as it stands, apart from what separates its items; "+" would be read as a blank.
    const QByteArray allowed = "!$'()*,;:@/?";
    QStringList items;
    for (auto item = query.begin(); item != query.end(); ++item)
        items.append(QString::fromLatin1(QUrl::toPercentEncoding(item.key(), allowed)) + u'=' +
                     QString::fromLatin1(QUrl::toPercentEncoding(item.value(), allowed)));
    return items.join(u'&');
}

/// Limits the reports of a transfer and brings them to the caller's thread.
class ProgressReporter {
public:
    ProgressReporter(QObject *caller, DownloadProgress progress)
        : m_caller(caller)
        , m_progress(std::move(progress)) {}

    void update(const HTTPResponse &soFar) {
        const auto now = Clock::shared().uptime();
        if (m_last && now - *m_last <= progressInterval)
            return;
        const qint64 received = m_last ? soFar.body.size() : 0;
        m_last = now;
        const auto total = soFar.expectedLength;
        report(received, total, total < 1 ? 0.0 : double(received) / double(total));
    }

private:
    void report(qint64 received, qint64 total, double fraction) {
        QMetaObject::invokeMethod(
            m_caller, [=, progress = m_progress] { progress(received, total, fraction); }, Qt::QueuedConnection);
    }

    QObject *m_caller;
    DownloadProgress m_progress;
    std::optional<Clock::Duration> m_last;
};

QJsonObject mirrored(const QNetworkCookie &cookie) {
    QJsonObject object{{u"name"_s, QString::fromUtf8(cookie.name())},
                       {u"value"_s, QString::fromUtf8(cookie.value())},
                       {u"domain"_s, cookie.domain()},
                       {u"path"_s, cookie.path()}};
    if (cookie.isSecure())
        object.insert(u"secure"_s, u"1"_s);
    if (!cookie.isSessionCookie())
        object.insert(u"expires"_s,
                      QString::number(double(cookie.expirationDate().toMSecsSinceEpoch()) / 1000, 'f', 3));
    return object;
}

} // namespace

APIClient &APIClient::shared() {
    static APIClient client;
    return client;
}

APIClient::APIClient() {
    m_executor.setObjectName(u"APIClient"_s);
    m_executor.start();
    m_executorHome->moveToThread(&m_executor);
    // With the application object: the session must not outlive what Qt's network module keeps for its own.
    qAddPostRoutine([] { shared().endSession(); });
}

void APIClient::endSession() {
    QMetaObject::invokeMethod(
        m_executorHome.get(), [this] { m_session.reset(); }, Qt::BlockingQueuedConnection);
}

APIClient::~APIClient() {
    endSession();
    m_executor.quit();
    m_executor.wait();
}

std::optional<QUrl> APIClient::makeURL(const QString &path, const Query &query) const {
    QUrl url(currentServerAddress() + u'/' + path, QUrl::StrictMode);
    if (!url.isValid())
        return std::nullopt;
    if (!query.isEmpty())
        url.setQuery(queryText(query), QUrl::StrictMode);
    return url;
}

void APIClient::setServerURL(const QString &text) {
    UserDefaults::standard().set(u"serverURL"_s, normalizedServerAddress(text));
}

APIClient::Form APIClient::getForm(QString path, Query query) {
    return {std::move(path), std::move(query), {.headers = {acceptsJSON}}, {}};
}

APIClient::Form APIClient::postForm(QString path, BodyText body, bool accepts) {
    Form form{std::move(path), {}, {.method = "POST", .headers = {carriesJSON}}, std::move(body)};
    if (accepts)
        form.request.headers.append(acceptsJSON);
    return form;
}

APIClient::Form APIClient::rawForm(QString path, Query query) {
    return {std::move(path), std::move(query), {}, {}};
}

void APIClient::validate(const HTTPResponse &response) {
    if (response.status == 0)
        throw APIError::invalidResponse();
    if (response.status == 401)
        throw APIError::unauthorized();
    if (response.status / 100 != 2)
        throw APIError::serverError(failureText(response));
}

bool APIClient::validated(HTTPResponse response) {
    validate(response);
    return true;
}

QByteArray APIClient::downloaded(HTTPResponse response) {
    if (response.status / 100 != 2)
        throw APIError::serverError(u"Download failed"_s);
    return std::move(response.body);
}

QCoro::Task<HTTPResponse> APIClient::respond(Form form, Progress progress) {
    const auto url = makeURL(form.path, form.query);
    if (!url)
        throw APIError::invalidURL();
    form.request.url = *url;
    if (form.body)
        form.request.body = form.body();
    if (!m_session)
        m_session = std::make_unique<URLSession>(
            [](const AuthenticationChallenge &challenge) { return TrustManager::shared().handle(challenge); });
    co_return co_await m_session->data(std::move(form.request), std::move(progress));
}

QCoro::Task<> APIClient::postVoid(QString path) {
    auto form = postForm(std::move(path), {}, false);
    co_await exchange<bool>(std::move(form), validated);
}

QCoro::Task<> APIClient::postJSON(QString path, QJsonObject dictionary) {
    return postVoid(std::move(path), std::move(dictionary));
}

QCoro::Task<> APIClient::putJSON(QString path, QJsonObject dictionary) {
    auto form = postForm(std::move(path), textOf(std::move(dictionary)), false);
    form.request.method = "PUT";
    co_await exchange<bool>(std::move(form), validated);
}

QCoro::Task<> APIClient::delete_(QString path) {
    auto form = rawForm(std::move(path), {});
    form.request.method = "DELETE";
    co_await exchange<bool>(std::move(form), validated);
}

QCoro::Task<QByteArray> APIClient::getData(QString path, Query query) {
    co_return co_await exchange<QByteArray>(rawForm(std::move(path), std::move(query)), downloaded);
}

QCoro::Task<QByteArray> APIClient::download(QString path, Query query, DownloadProgress progress) {
    QObject here;
    qint64 expected = -1;
    ProgressReporter reporter(&here, progress);
    auto form = rawForm(std::move(path), std::move(query));
    // Not inside the await: GCC 12 destroys what a lambda has captured there twice.
    const Progress report = [&](const HTTPResponse &soFar) {
        if (soFar.status / 100 != 2)
            return;
        expected = soFar.expectedLength;
        reporter.update(soFar);
    };
    const auto bytes = co_await exchange<QByteArray>(std::move(form), downloaded, report);
    progress(bytes.size(), expected >= 1 ? expected : bytes.size(), 1.0);
    co_return bytes;
}

QCoro::Task<ChatGPTSubscriptionStatus> APIClient::subscriptionRequest(SubscriptionAction action) {
    static const std::map<SubscriptionAction, QString> words{{SubscriptionAction::start, u"start"_s},
                                                             {SubscriptionAction::cancel, u"cancel"_s},
                                                             {SubscriptionAction::logout, u"logout"_s},
                                                             {SubscriptionAction::status, u"status"_s}};
    const auto path = u"api/admin/subscription/chatgpt/"_s + words.at(action);
    const bool asks = action == SubscriptionAction::status;
    auto form = asks ? getForm(path, {}) : postForm(path, textOf(QJsonObject()), true);
    if (!asks)
        form.request.headers.emplaceBack("X-Corvanite-Subscription", "1");
    form.request.ignoresCache = true;
    form.request.timeout = std::chrono::seconds(65);
    co_return co_await exchange<ChatGPTSubscriptionStatus>(std::move(form), decoded<ChatGPTSubscriptionStatus>);
}

QCoro::Task<> APIClient::syncAuthCookies() {
    auto *caller = QThread::currentThread();
    co_await QCoro::moveToThread(&m_executor);
    if (const auto mirror = UserDefaults::suite(applicationGroupName())) {
        const auto address = currentServerAddress();
        mirror->set(u"auth_server_url"_s, address);
        QJsonArray cookies;
        const QUrl url(address, QUrl::StrictMode);
        for (const auto &cookie : url.isValid() ? HTTPCookieStorage::shared().cookies(url) : QList<QNetworkCookie>())
            cookies.append(mirrored(cookie));
        mirror->set(u"auth_cookies"_s, QJsonDocument(cookies).toJson(QJsonDocument::Compact));
    }
    co_await QCoro::moveToThread(caller);
}

void APIClient::clearCookies() {
    const QUrl url(currentServerAddress(), QUrl::StrictMode);
    if (url.isValid())
        HTTPCookieStorage::shared().remove(HTTPCookieStorage::shared().cookies(url));
}

void APIClient::clearAuthMirror() {
    if (const auto mirror = UserDefaults::suite(applicationGroupName())) {
        mirror->remove(u"auth_cookies"_s);
        mirror->remove(u"auth_server_url"_s);
    }
}
