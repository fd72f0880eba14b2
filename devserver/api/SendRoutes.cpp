#include "api/APIRoutes.h"
#include "send/SendRequest.h"

#include <iostream>

namespace {

APIResponse fromAddresses(AccountStore &accounts, const APIRequest &request) {
    auto records = nlohmann::json::array();
    for (const auto &address : accounts.addressesOf(request.account()))
        records.push_back({{"address", address}, {"is_default", records.empty()}});
    return APIResponse::json({{"addresses", std::move(records)}});
}

/// A failure is only logged: the message has gone out by now.
void noteRecipients(ContactStore &contacts, const std::string &accountID, const OutgoingMessage &message) {
    try {
        for (const auto &[name, address] : recipientsOf(message))
            contacts.noteUse(accountID, address, name);
    } catch (const std::exception &error) {
        std::cerr << "Recipients are not noted as contacts: " << error.what() << std::endl;
    }
}

APIResponse send(const ServerContext &context, const APIRequest &request) {
    const auto &account = request.account();
    const auto message = readSendRequest(request, context.accounts, context.mailbox(request));
    context.delivery.send(account, message);
    noteRecipients(context.contacts, account.id, message);
    return APIResponse::done();
}

} // namespace

void addSendRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/from-addresses",
               [&](const APIRequest &request) { return fromAddresses(context.accounts, request); });
    router.add("POST", "api/emails/send", [&](const APIRequest &request) { return send(context, request); });
}
