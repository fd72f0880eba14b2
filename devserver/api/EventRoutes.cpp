#include "api/APIRoutes.h"

#include <numeric>

namespace {

/// How soon a stream whose reader is gone is noticed.
constexpr auto heartbeat = std::chrono::seconds(10);

/// Holds one subscription for as long as its stream lives.
class EventStream {
public:
    EventStream(EventHub &events, const APIRequest &request)
        : m_events(events)
        , m_subscription(events.subscribe(request.account().id, request.sessionToken)) {}
    ~EventStream() { m_events.unsubscribe(m_subscription); }
    EventStream(const EventStream &) = delete;
    EventStream &operator=(const EventStream &) = delete;

    std::string next() { return m_events.next(m_subscription, heartbeat); }

private:
    EventHub &m_events;
    EventHub::Subscription m_subscription;
};

APIResponse openStream(const ServerContext &context, const APIRequest &request) {
    // Only an open mailbox is watched.
    context.mailbox(request);
    APIResponse response;
    response.contentType = "text/event-stream";
    response.headers["Cache-Control"] = "no-cache";
    auto stream = std::make_shared<EventStream>(context.events, request);
    response.stream = [stream](const auto &write) {
        const auto text = stream->next();
        return !text.empty() && write(text);
    };
    return response;
}

} // namespace

void addEventRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/events", [&](const APIRequest &request) { return openStream(context, request); });
    router.add("GET", "api/events/stats", [&](const APIRequest &) {
        const auto perUser = context.events.connections();
        const auto add = [](int sum, const auto &user) { return sum + user.second; };
        return APIResponse::json(
            {{"totalConnections", std::accumulate(perUser.begin(), perUser.end(), 0, add)}, {"perUser", perUser}});
    });
}
