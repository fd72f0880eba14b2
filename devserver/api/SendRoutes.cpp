#include "api/APIRoutes.h"
#include "send/SendRequest.h"

namespace {

APIResponse fromAddresses(AccountStore &accounts, const APIRequest &request) {
    auto records = nlohmann::json::array();
    for (const auto &address : accounts.addressesOf(request.account()))
        records.push_back({{"address", address}, {"is_default", records.empty()}});
    return APIResponse::json({{"addresses", std::move(records)}});
}

APIResponse send(const ServerContext &context, const APIRequest &request) {
    const auto &account = request.account();
    const auto message = readSendRequest(request, context.accounts, context.mailbox(request));
    context.delivery.send(account, message);
    for (const auto &[name, address] : recipientsOf(message))
        context.contacts.noteUse(account.id, address, name);
    return APIResponse::done();
}

} // namespace

void addSendRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/from-addresses",
               [&](const APIRequest &request) { return fromAddresses(context.accounts, request); });
    router.add("POST", "api/emails/send", [&](const APIRequest &request) { return send(context, request); });
}
