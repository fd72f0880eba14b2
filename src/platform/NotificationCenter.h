#pragma once

#include "platform/Clock.h"

#include <QCoroTask>
#include <QJsonObject>
#include <QStringList>
#include <optional>
#include <vector>

/// One notification, waiting or shown.
struct NotificationRequest {
    /// A request replaces an earlier one of the same identifier.
    QString identifier;
    QString title, subtitle, body;
    /// Notifications of one thread are shown together.
    QString threadIdentifier;
    /// The category whose actions it offers; empty for none.
    QString category;
    /// The name of a sound; "default" is the system's own, absent is silence.
    std::optional<QString> sound;
    /// Kept with the notification for whoever asks for it or reacts to it.
    QJsonObject userInfo;
    /// Absent delivers at once.
    std::optional<Clock::Duration> delay;
};

/// The system's notifications, as one centre that remembers what it delivered. Main thread only. Failures of the system
/// are not told: a notification that cannot be shown has no effect.
class NotificationCenter {
public:
    virtual ~NotificationCenter() = default;

    virtual QCoro::Task<> addNotificationRequest(NotificationRequest request) = 0;
    virtual QCoro::Task<std::vector<NotificationRequest>> getDeliveredNotifications() = 0;
    virtual QCoro::Task<std::vector<NotificationRequest>> getPendingNotificationRequests() = 0;
    virtual void removeDeliveredNotifications(const QStringList &identifiers) = 0;
    virtual void removePendingNotificationRequests(const QStringList &identifiers) = 0;
    /// Removes all, delivered and pending.
    virtual void removeAllNotifications() = 0;
};
