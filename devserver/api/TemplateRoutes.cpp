#include "api/APIRoutes.h"

namespace {

APIResponse list(TemplateStore &store, const APIRequest &request) {
    auto records = nlohmann::json::array();
    for (const auto &[id, name, subject, body] : store.list(request.account().id))
        records.push_back({{"_id", id}, {"name", name}, {"subject", subject}, {"body", body}});
    return APIResponse::json({{"templates", std::move(records)}});
}

APIResponse create(TemplateStore &store, const APIRequest &request) {
    const auto name = request.bodyText("name");
    if (name.empty())
        throw APIError(400, "A template needs a name");
    store.add(request.account().id, name, request.bodyText("subject"), request.bodyText("body"));
    return APIResponse::done();
}

APIResponse remove(TemplateStore &store, const APIRequest &request) {
    if (!store.remove(request.account().id, request.pathArguments.at(0)))
        throw APIError(404, "There is no such template");
    return APIResponse::done();
}

} // namespace

void addTemplateRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/templates", [&](const APIRequest &request) { return list(context.templates, request); });
    router.add("POST", "api/templates/create",
               [&](const APIRequest &request) { return create(context.templates, request); });
    router.add("POST", "api/templates/delete/:id",
               [&](const APIRequest &request) { return remove(context.templates, request); });
}
