#pragma once

#include <nlohmann/json.hpp>

#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <string>

/// The queue of one open event stream.
struct EventQueue {
    std::string accountID;
    std::string sessionToken;
    std::list<std::string> blocks;
    bool isClosed = false;
};

/// Hands each event to all open streams of an account. Safe from any thread.
class EventHub {
public:
    using Subscription = std::shared_ptr<EventQueue>;

    /// The stream begins with the event "connected".
    Subscription subscribe(const std::string &accountID, const std::string &sessionToken);
    void unsubscribe(const Subscription &subscription);

    void publish(const std::string &accountID, const std::string &event, const nlohmann::json &data);

    /// Waits for what is to be written next: event blocks, a comment when `patience` ran out, nothing at the end of the
    /// stream.
    std::string next(const Subscription &subscription, std::chrono::milliseconds patience);

    /// Ends the streams that a session has opened.
    void closeSession(const std::string &sessionToken);

    /// Ends all streams, now and in future.
    void close();

    /// Open streams by account.
    std::map<std::string, int> connections() const;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    std::list<Subscription> m_subscriptions;
    bool m_closed = false;
};

/// One block of a text/event-stream.
std::string eventBlock(const std::string &event, const nlohmann::json &data);
