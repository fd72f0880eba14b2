#include "notify/FakeNotificationCenter.h"

QCoro::Task<> FakeNotificationCenter::addNotificationRequest(NotificationRequest request) {
    remove(delivered, {request.identifier});
    delivered.push_back(std::move(request));
    co_return;
}

QCoro::Task<std::vector<NotificationRequest>> FakeNotificationCenter::getDeliveredNotifications() {
    if (m_holds) {
        Completion<bool> answered;
        m_waiting.push_back(answered);
        co_await answered;
    }
    // QCoro moves from what is not const.
    co_return std::as_const(delivered);
}

QCoro::Task<std::vector<NotificationRequest>> FakeNotificationCenter::getPendingNotificationRequests() {
    co_return std::as_const(pending);
}

void FakeNotificationCenter::removeAllNotifications() {
    delivered.clear();
    pending.clear();
}

void FakeNotificationCenter::answerNext() {
    auto first = m_waiting.front();
    m_waiting.erase(m_waiting.begin());
    first.succeed(true);
}

QStringList FakeNotificationCenter::present() const {
    QStringList identifiers;
    for (const auto *requests : {&delivered, &pending})
        for (const auto &request : *requests)
            identifiers.append(request.identifier);
    return identifiers;
}

void FakeNotificationCenter::remove(std::vector<NotificationRequest> &requests, const QStringList &identifiers) {
    std::erase_if(requests, [&](const auto &request) { return identifiers.contains(request.identifier); });
}
