#include "api/APIRoutes.h"
#include "mailbox/MailboxJSON.h"

#include <algorithm>
#include <chrono>
#include <ctime>

namespace {

constexpr std::int64_t largestPage = 500;
constexpr double secondsOfDay = 86400;

/// Midnight, by the server's clock, that begins the day "yyyy-MM-dd", `days` later.
double startOfDay(const std::string &text, int days) {
    std::tm day{};
    const char *rest = strptime(text.c_str(), "%Y-%m-%d", &day);
    if (!rest || *rest != '\0')
        throw APIError(400, "A date must look like 2026-01-31");
    day.tm_mday += days;
    day.tm_isdst = -1;
    return static_cast<double>(std::mktime(&day));
}

std::optional<double> latest(std::optional<double> a, std::optional<double> b) {
    return a && b ? std::max(a, b) : a ? a : b;
}

std::optional<double> listedFrom(const APIRequest &request) {
    std::optional<double> from, recent;
    if (const auto day = request.queryText("date_from", ""); !day.empty())
        from = startOfDay(day, 0);
    if (const auto days = request.queryInteger("last_days", 0); days > 0)
        recent = static_cast<double>(std::time(nullptr)) - static_cast<double>(days) * secondsOfDay;
    return latest(from, recent);
}

ListQuery readQuery(const APIRequest &request) {
    ListQuery query;
    query.page = std::max<std::int64_t>(1, request.queryInteger("page", 1));
    query.perPage = std::clamp<std::int64_t>(request.queryInteger("per_page", 50), 1, largestPage);
    query.search = request.queryText("search", "");
    query.onlyWithAttachment = request.queryFlag("has_attachment");
    query.onlyFlagged = request.queryFlag("flagged");
    query.from = listedFrom(request);
    if (const auto day = request.queryText("date_to", ""); !day.empty())
        query.until = startOfDay(day, 1);
    return query;
}

APIResponse list(Mailbox &mailbox, const APIRequest &request) {
    const auto folder = request.queryText("folder");
    const auto query = readQuery(request);
    return APIResponse::json(listRecord(mailbox.list(folder, query), folder, query));
}

APIResponse cached(Mailbox &mailbox, const APIRequest &request) {
    const auto folder = request.queryText("folder");
    const auto query = readQuery(request);
    return APIResponse::json(listRecord(mailbox.cachedList(folder, query.page, query.perPage), folder, query));
}

} // namespace

void addListRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/emails/list",
               [&](const APIRequest &request) { return list(context.mailbox(request), request); });
    router.add("GET", "api/emails/cached",
               [&](const APIRequest &request) { return cached(context.mailbox(request), request); });
    router.add("GET", "api/emails/notification-state", [&](const APIRequest &request) {
        auto &mailbox = context.mailbox(request);
        return APIResponse::json(stateRecord(mailbox.state(request.queryText("folder")), mailbox.accountID()));
    });
}
