#pragma once

#include <httplib.h>
#include <nlohmann/json.hpp>

#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

/// One open event stream, read on a thread of its own.
class EventReader {
public:
    /// Returns when the stream has said "connected".
    EventReader(const std::string &address, const std::string &cookie);
    ~EventReader();
    EventReader(const EventReader &) = delete;
    EventReader &operator=(const EventReader &) = delete;

    using Condition = std::function<bool(const nlohmann::json &data)>;

    /// The data of the next event of that name that meets the condition, dropping others; fails when it does not come.
    nlohmann::json waitFor(const std::string &event, const Condition &condition = {});

    /// Waits for the end of the stream; false when it does not come.
    bool waitForEnd();

    httplib::Headers responseHeaders();

private:
    struct Event {
        std::string name;
        std::string data;
    };

    void read(const std::string &cookie);
    void receive(const std::string &bytes);

    httplib::Client m_client;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    httplib::Headers m_headers;
    std::string m_buffer;
    std::list<Event> m_events;
    bool m_ended = false;
    std::thread m_thread;
};
