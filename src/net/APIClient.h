#pragma once

#include "admin/SubscriptionRecords.h"
#include "net/APIError.h"
#include "net/JSONText.h"
#include "platform/URLSession.h"

#include <QCoroThread>
#include <QMap>
#include <QThread>

/// Bytes received so far, the total in bytes (0 or less when unknown), and the fraction from 0 to 1.
using DownloadProgress = std::function<void(qint64 received, qint64 total, double fraction)>;

/// The one road to the webmail server's HTTP interface. Its work runs on a thread of its own; every operation may be
/// called from any thread with an event loop and returns there. Fails with `APIError`, `URLError` or `DecodingError`.
/// No request is ever repeated.
class APIClient {
public:
    using Query = QMap<QString, QString>;
    enum class SubscriptionAction { start, cancel, logout, status };

    static APIClient &shared();
    ~APIClient();

    /// The address of `path` (without leading slash) below the server's, with the query sorted by name; absent when it
    /// does not parse.
    std::optional<QUrl> makeURL(const QString &path, const Query &query = {}) const;
    void setServerURL(const QString &text);

    template <typename T> QCoro::Task<T> get(QString path, Query query = {}) {
        co_return co_await exchange<T>(getForm(std::move(path), std::move(query)), decoded<T>);
    }

    template <typename T, typename Body> QCoro::Task<T> post(QString path, Body body) {
        auto form = postForm(std::move(path), textOf(std::move(body)), true);
        co_return co_await exchange<T>(std::move(form), decoded<T>);
    }

    QCoro::Task<> postVoid(QString path);
    template <typename Body> QCoro::Task<> postVoid(QString path, Body body) {
        auto form = postForm(std::move(path), textOf(std::move(body)), false);
        co_await exchange<bool>(std::move(form), validated);
    }
    QCoro::Task<> postJSON(QString path, QJsonObject dictionary);
    QCoro::Task<> putJSON(QString path, QJsonObject dictionary);
    QCoro::Task<> delete_(QString path);
    QCoro::Task<QByteArray> getData(QString path, Query query = {});
    /// `progress` is called on the caller's thread, at most 20 times a second and once at either end.
    QCoro::Task<QByteArray> download(QString path, Query query, DownloadProgress progress);
    QCoro::Task<ChatGPTSubscriptionStatus> subscriptionRequest(SubscriptionAction action);

    /// Mirrors the session cookies for companion processes of the application group.
    QCoro::Task<> syncAuthCookies();
    /// Deletes every cookie that applies to the current server address.
    void clearCookies();
    void clearAuthMirror();

private:
    /// Makes the body of a request, on the client's own thread.
    using BodyText = std::function<QByteArray()>;
    /// What the forms of request differ in.
    struct Form {
        QString path;
        Query query;
        URLRequest request;
        BodyText body;
    };
    template <typename T> using Judge = T (*)(HTTPResponse);
    using Progress = std::function<void(const HTTPResponse &)>;

    APIClient();
    void endSession();

    static Form getForm(QString path, Query query);
    static Form postForm(QString path, BodyText body, bool accepts);
    static Form rawForm(QString path, Query query);

    template <typename Body> static BodyText textOf(Body body) {
        return [body = std::move(body)] { return encodeJSONText(body); };
    }

    static void validate(const HTTPResponse &response);
    static bool validated(HTTPResponse response);
    static QByteArray downloaded(HTTPResponse response);
    template <typename T> static T decoded(HTTPResponse response) {
        validate(response);
        return decodeJSONText<T>(response.body);
    }

    /// Runs on the client's own thread.
    QCoro::Task<HTTPResponse> respond(Form form, Progress progress);

    template <typename T> QCoro::Task<T> exchange(Form form, Judge<T> judge, Progress progress = {}) {
        auto *caller = QThread::currentThread();
        std::optional<T> result;
        std::exception_ptr failure;
        co_await QCoro::moveToThread(&m_executor);
        try {
            auto response = co_await respond(std::move(form), std::move(progress));
            result = judge(std::move(response));
        } catch (...) {
            failure = std::current_exception();
        }
        co_await QCoro::moveToThread(caller);
        if (failure)
            std::rethrow_exception(failure);
        co_return std::move(*result);
    }

    QThread m_executor;
    std::unique_ptr<QObject> m_executorHome = std::make_unique<QObject>();
    /// Made at first use, on the executor.
    std::unique_ptr<URLSession> m_session;
};
