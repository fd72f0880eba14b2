#include "api/APIRoutes.h"
#include "mime/TextDecoding.h"
#include "send/AddressList.h"

namespace {

APIResponse list(ContactStore &store, const APIRequest &request) {
    auto records = nlohmann::json::array();
    for (const auto &contact : store.list(request.account().id)) {
        records.push_back({{"_id", contact.id},
                           {"email", contact.email},
                           {"name", contact.name},
                           {"frequency", contact.frequency},
                           {"source", contact.source}});
    }
    return APIResponse::json({{"contacts", std::move(records)}});
}

APIResponse add(ContactStore &store, const APIRequest &request) {
    store.add(request.account().id, parseMailAddress(request.bodyText("email")), singleLine(request.bodyText("name")));
    return APIResponse::done();
}

APIResponse update(ContactStore &store, const APIRequest &request) {
    store.update(request.account().id, request.bodyText("contact_id"), parseMailAddress(request.bodyText("email")),
                 singleLine(request.bodyText("name")));
    return APIResponse::done();
}

APIResponse remove(ContactStore &store, const APIRequest &request) {
    if (!store.remove(request.account().id, request.pathArguments.at(0)))
        throw APIError(404, "There is no such contact");
    return APIResponse::done();
}

} // namespace

void addContactRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/contacts", [&](const APIRequest &request) { return list(context.contacts, request); });
    router.add("POST", "api/contacts/add", [&](const APIRequest &request) { return add(context.contacts, request); });
    router.add("POST", "api/contacts/update",
               [&](const APIRequest &request) { return update(context.contacts, request); });
    router.add("DELETE", "api/contacts/:id",
               [&](const APIRequest &request) { return remove(context.contacts, request); });
}
