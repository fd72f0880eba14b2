#pragma once

#include "notify/NotificationService.h"
#include "platform/Completion.h"

/// A notification centre in memory, which can let those who ask wait. It is the service's for as long as it lives.
class FakeNotificationCenter final : public NotificationCenter {
public:
    FakeNotificationCenter() { NotificationService::shared().notificationCenter = this; }
    ~FakeNotificationCenter() override { NotificationService::shared().notificationCenter = nullptr; }

    QCoro::Task<> addNotificationRequest(NotificationRequest request) override;
    QCoro::Task<std::vector<NotificationRequest>> getDeliveredNotifications() override;
    QCoro::Task<std::vector<NotificationRequest>> getPendingNotificationRequests() override;
    void removeDeliveredNotifications(const QStringList &identifiers) override { remove(delivered, identifiers); }
    void removePendingNotificationRequests(const QStringList &identifiers) override { remove(pending, identifiers); }
    void removeAllNotifications() override;

    /// From now on whoever asks for the delivered ones waits for `answerNext`.
    void hold() { m_holds = true; }
    /// Lets the one that waits the longest go on.
    void answerNext();

    /// The identifiers of what is delivered and pending.
    QStringList present() const;

    std::vector<NotificationRequest> delivered, pending;

private:
    static void remove(std::vector<NotificationRequest> &requests, const QStringList &identifiers);

    bool m_holds = false;
    std::vector<Completion<bool>> m_waiting;
};
