#include "EventReader.h"

#include <stdexcept>

namespace {

constexpr auto patience = std::chrono::seconds(20);

std::string fieldOf(const std::string &block, const std::string &name) {
    const auto start = block.find(name + ": ");
    if (start == std::string::npos)
        return {};
    const auto value = start + name.size() + 2;
    return block.substr(value, block.find('\n', value) - value);
}

} // namespace

EventReader::EventReader(const std::string &address, const std::string &cookie)
    : m_client(address) {
    m_client.set_read_timeout(60);
    m_thread = std::thread([this, cookie] { read(cookie); });
    try {
        waitFor("connected");
    } catch (...) {
        m_client.stop();
        m_thread.join();
        throw;
    }
}

EventReader::~EventReader() {
    m_client.stop();
    m_thread.join();
}

void EventReader::read(const std::string &cookie) {
    const httplib::Headers headers{{"Cookie", cookie}, {"Accept", "text/event-stream"}, {"Accept-Encoding", "gzip"}};
    const auto response = [this](const httplib::Response &answer) {
        const std::lock_guard lock(m_mutex);
        m_headers = answer.headers;
        return answer.status == 200;
    };
    m_client.Get("/api/events", headers, response, [this](const char *bytes, std::size_t size) {
        receive({bytes, size});
        return true;
    });
    const std::lock_guard lock(m_mutex);
    m_ended = true;
    m_wake.notify_all();
}

void EventReader::receive(const std::string &bytes) {
    const std::lock_guard lock(m_mutex);
    m_buffer += bytes;
    for (auto end = m_buffer.find("\n\n"); end != std::string::npos; end = m_buffer.find("\n\n")) {
        const auto block = m_buffer.substr(0, end);
        m_buffer.erase(0, end + 2);
        m_events.push_back({fieldOf(block, "event"), fieldOf(block, "data")});
    }
    m_wake.notify_all();
}

nlohmann::json EventReader::waitFor(const std::string &event, const Condition &condition) {
    const auto deadline = std::chrono::steady_clock::now() + patience;
    std::unique_lock lock(m_mutex);
    for (;;) {
        if (!m_wake.wait_until(lock, deadline, [this] { return m_ended || !m_events.empty(); }) || m_events.empty())
            throw std::runtime_error("the event " + event + " did not come");
        const auto next = m_events.front();
        m_events.pop_front();
        if (next.name != event)
            continue;
        auto data = nlohmann::json::parse(next.data);
        if (!condition || condition(data))
            return data;
    }
}

bool EventReader::waitForEnd() {
    std::unique_lock lock(m_mutex);
    return m_wake.wait_for(lock, patience, [this] { return m_ended; });
}

httplib::Headers EventReader::responseHeaders() {
    const std::lock_guard lock(m_mutex);
    return m_headers;
}
