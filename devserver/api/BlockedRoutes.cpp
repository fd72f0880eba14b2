#include "api/APIRoutes.h"

namespace {

APIResponse list(BlockedStore &store, const APIRequest &request) {
    auto records = nlohmann::json::array();
    for (const auto &rule : store.list(request.account().id))
        records.push_back({{"_id", rule.id}, {"type", rule.type}, {"pattern", rule.pattern}});
    return APIResponse::json({{"blocked", std::move(records)}});
}

APIResponse add(BlockedStore &store, const APIRequest &request) {
    const auto pattern = request.bodyText("pattern");
    if (pattern.find_first_not_of(" \t") == std::string::npos)
        throw APIError(400, "The pattern is empty");
    store.add(request.account().id, request.bodyText("type"), pattern);
    return APIResponse::done();
}

APIResponse remove(BlockedStore &store, const APIRequest &request) {
    const auto &account = request.account().id;
    const auto id = request.bodyOptionalText("blocked_id");
    const bool removed =
        id ? store.remove(account, *id) : store.remove(account, request.bodyText("type"), request.bodyText("pattern"));
    if (!removed)
        throw APIError(404, "There is no such rule");
    return APIResponse::done();
}

} // namespace

void addBlockedRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/blocked", [&](const APIRequest &request) { return list(context.blocked, request); });
    router.add("POST", "api/blocked/add", [&](const APIRequest &request) { return add(context.blocked, request); });
    router.add("POST", "api/blocked/delete",
               [&](const APIRequest &request) { return remove(context.blocked, request); });
}
