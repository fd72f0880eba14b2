#include "app/AppState.h"

#include "net/JSONRecord.h"
#include "platform/JSONNumber.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace {

constexpr auto bubbleDuration = std::chrono::seconds(5);
const auto inbox = u"INBOX"_s;

QString textOr(const QJsonObject &data, QLatin1StringView key, const QString &fallback = {}) {
    return data.value(key).toString(fallback);
}

std::vector<qint64> wholeNumbers(const QJsonValue &value) {
    std::vector<qint64> numbers;
    for (const auto &item : value.toArray())
        if (const auto number = exactInteger(item))
            numbers.push_back(*number);
    return numbers;
}

} // namespace

void AppState::handleEvent(const QString &name, const QJsonObject &data) {
    if (name == "connected"_L1)
        startCheck(false);
    else if (name == "mailbox_state"_L1)
        handleMailboxState(data);
    else if (name == "emails_changed"_L1)
        handleEmailsChanged(data);
    else if (name == "new_emails"_L1)
        handleNewEmails(data);
    else if (name == "chat_message"_L1)
        handleChatMessage(data);
}

void AppState::handleMailboxState(const QJsonObject &data) {
    try {
        launch(notificationService.applyMailboxState(decodeJSON<MailboxNotificationState>(data)));
    } catch (const DecodingError &) {
        return;
    }
}

void AppState::signalChangedFolder(const QString &folder) {
    emailsChangedInFolder = folder;
    // At once: a further event in the same turn may name another folder.
    Q_EMIT changed();
}

void AppState::handleEmailsChanged(const QJsonObject &data) {
    const auto folder = textOr(data, "folder"_L1, inbox);
    signalChangedFolder(folder);
    if (data.value("seen"_L1).toBool() || data.value("removed"_L1).toBool())
        launch(notificationService.dismissNotifications(folder, wholeNumbers(data.value("uids"_L1))));
}

void AppState::handleNewEmails(const QJsonObject &data) {
    if (exactInteger(data.value("count"_L1)).value_or(0) < 1)
        return;
    const auto latest = data.value("latest"_L1).toArray();
    signalChangedFolder(textOr(latest.isEmpty() ? QJsonObject() : latest.first().toObject(), "folder"_L1, inbox));
    startCheck(deliversNotifications());
}

void AppState::handleChatMessage(const QJsonObject &data) {
    const auto words = data.contains("message"_L1) ? "message"_L1 : "text"_L1;
    const auto now = Clock::shared().now();
    incomingChatMessage = IncomingChatMessage{textOr(data, "from_name"_L1, u"Someone"_s), textOr(data, "from_id"_L1),
                                              textOr(data, words), now};
    startCheck(deliversNotifications());
    if (!UserDefaults::standard().flag(u"showChatBubbles"_s).value_or(false))
        return;
    showChatBubble = true;
    // A newer message keeps the bubble up for its own time.
    m_bubbleEnd = Clock::shared().after(bubbleDuration, [this, now] {
        if (incomingChatMessage.get()->timestamp == now)
            showChatBubble = false;
    });
}
