#include "http/EventHub.h"

#include "http/APIRequest.h"

std::string eventBlock(const std::string &event, const nlohmann::json &data) {
    return "event: " + event + "\ndata: " + jsonText(data) + "\n\n";
}

EventHub::Subscription EventHub::subscribe(const std::string &accountID, const std::string &sessionToken) {
    auto subscription = std::make_shared<EventQueue>(
        EventQueue{accountID, sessionToken, {eventBlock("connected", nlohmann::json::object())}});
    const std::lock_guard lock(m_mutex);
    m_subscriptions.push_back(subscription);
    return subscription;
}

void EventHub::unsubscribe(const Subscription &subscription) {
    const std::lock_guard lock(m_mutex);
    m_subscriptions.remove(subscription);
}

void EventHub::publish(const std::string &accountID, const std::string &event, const nlohmann::json &data) {
    const auto block = eventBlock(event, data);
    const std::lock_guard lock(m_mutex);
    for (const auto &subscription : m_subscriptions) {
        if (subscription->accountID == accountID)
            subscription->blocks.push_back(block);
    }
    m_wake.notify_all();
}

std::string EventHub::next(const Subscription &subscription, std::chrono::milliseconds patience) {
    std::unique_lock lock(m_mutex);
    const auto ended = [&] { return m_closed || subscription->isClosed; };
    m_wake.wait_for(lock, patience, [&] { return ended() || !subscription->blocks.empty(); });
    if (ended())
        return {};
    if (subscription->blocks.empty())
        return ": still here\n\n";
    std::string text;
    for (const auto &block : subscription->blocks)
        text += block;
    subscription->blocks.clear();
    return text;
}

void EventHub::closeSession(const std::string &sessionToken) {
    const std::lock_guard lock(m_mutex);
    for (const auto &subscription : m_subscriptions)
        subscription->isClosed |= subscription->sessionToken == sessionToken;
    m_wake.notify_all();
}

void EventHub::close() {
    const std::lock_guard lock(m_mutex);
    m_closed = true;
    m_wake.notify_all();
}

std::map<std::string, int> EventHub::connections() const {
    const std::lock_guard lock(m_mutex);
    std::map<std::string, int> result;
    for (const auto &subscription : m_subscriptions)
        ++result[subscription->accountID];
    return result;
}
