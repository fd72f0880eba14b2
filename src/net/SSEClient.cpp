#include "net/SSEClient.h"

#include "net/TrustManager.h"
#include "platform/UserDefaults.h"

#include <QJsonDocument>
#include <QRandomGenerator>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double reconnectBaseDelay = 5.0; // seconds
constexpr double reconnectMaxDelay = 60.0; // seconds
constexpr int highestReconnectAttempt = 8;

} // namespace

SSEClient::SSEClient() {
    m_parsing.setMaxThreadCount(1);
}

SSEClient::~SSEClient() {
    disconnect();
    m_parsing.waitForDone();
}

void SSEClient::connect(const QString &serverURL) {
    disconnect();
    const QUrl url(serverURL + u"/api/events"_s, QUrl::StrictMode);
    if (!url.isValid())
        return;
    m_session = std::make_unique<URLSession>(
        [](const AuthenticationChallenge &challenge) { return TrustManager::shared().handle(challenge); });
    m_task = m_session->dataTask({.url = url,
                                  .headers = {{"Accept", "text/event-stream"}, {"Cache-Control", "no-cache"}},
                                  .timeout = std::nullopt});
    QObject::connect(m_task.get(), &URLSessionDataTask::responded, this, &SSEClient::receiveResponse);
    QObject::connect(m_task.get(), &URLSessionDataTask::received, this, &SSEClient::receiveData);
    QObject::connect(m_task.get(), &URLSessionDataTask::completed, this, &SSEClient::complete);
}

void SSEClient::disconnect() {
    m_reconnectWorkItem.reset();
    m_task.reset();
    m_session.reset();
    m_parser = SSEParser();
    isConnected = false;
}

void SSEClient::receiveResponse() {
    const auto &response = m_task->response();
    if (response.status != 200 || response.mediaType != "text/event-stream"_L1)
        return;
    m_reconnectAttempt = 0;
    // In the context of the task: one that has been dropped by then connects nothing.
    QMetaObject::invokeMethod(
        m_task.get(), [this] { isConnected = true; }, Qt::QueuedConnection);
}

void SSEClient::receiveData(const QByteArray &bytes) {
    for (auto &event : m_parser.append(bytes))
        m_parsing.start([this, event = std::move(event)] {
            const auto data = QJsonDocument::fromJson(event.data);
            if (data.isObject())
                QMetaObject::invokeMethod(
                    this, [=, this, name = event.name] { deliver(name, data.object()); }, Qt::QueuedConnection);
        });
}

void SSEClient::deliver(const QString &name, const QJsonObject &data) {
    if (onEvent)
        onEvent(name, data);
}

void SSEClient::complete(const std::optional<URLError> &error) {
    QMetaObject::invokeMethod(
        this, [this] { isConnected = false; }, Qt::QueuedConnection);
    if (error && error->code() == URLError::Code::cancelled)
        return;
    const auto address = UserDefaults::standard().text(u"serverURL"_s).value_or(QString());
    if (!address.isEmpty())
        scheduleReconnect(address);
}

void SSEClient::scheduleReconnect(const QString &address) {
    const auto backOff = std::min(reconnectBaseDelay * std::pow(2, m_reconnectAttempt), reconnectMaxDelay);
    const auto jitter = QRandomGenerator::global()->bounded(1001); // milliseconds
    m_reconnectAttempt = std::min(m_reconnectAttempt + 1, highestReconnectAttempt);
    m_reconnectWorkItem =
        Clock::shared().after(Clock::Duration(int(backOff * 1000) + jitter), [this, address] { connect(address); });
}
