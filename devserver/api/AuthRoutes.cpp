#include "api/APIRoutes.h"

namespace {

constexpr std::size_t shortestPassword = 6;

std::string sessionCookie(const ServerContext &context, const std::string &token, std::chrono::seconds lifetime) {
    return "corvanite_session=" + token +
           "; Path=/; HttpOnly; SameSite=Lax; Max-Age=" + std::to_string(lifetime.count()) +
           (context.options.useTLS ? "; Secure" : "");
}

APIResponse withSession(const ServerContext &context, const Account &account, APIResponse response) {
    const auto lifetime = context.options.sessionLifetime;
    const auto token = context.accounts.startSession(account.id, lifetime);
    response.headers["Set-Cookie"] = sessionCookie(context, token, lifetime);
    return response;
}

APIResponse login(const ServerContext &context, const APIRequest &request) {
    const auto account = context.accounts.authenticate(request.bodyText("username"), request.bodyText("password"));
    if (!account)
        throw APIError(401, "Wrong user name or password");
    return withSession(context, *account, APIResponse::json({{"user", accountRecord(*account)}}));
}

APIResponse registerAccount(const ServerContext &context, const APIRequest &request) {
    if (!context.options.allowsRegistration)
        throw APIError(403, "This server takes no new accounts");
    NewAccount wish;
    wish.username = request.bodyText("username");
    wish.password = request.bodyText("password");
    wish.email = request.bodyText("email");
    wish.fullName = request.bodyText("full_name");
    if (wish.password.size() < shortestPassword)
        throw APIError(400, "Password must be at least 6 characters");
    const auto account = context.accounts.create(wish);
    return withSession(context, account, APIResponse::json({{"message", "Account created"}}));
}

APIResponse logout(const ServerContext &context, const APIRequest &request) {
    context.accounts.endSession(request.sessionToken);
    context.events.closeSession(request.sessionToken);
    auto response = APIResponse::done();
    response.headers["Set-Cookie"] = sessionCookie(context, "", std::chrono::seconds(0));
    return response;
}

} // namespace

void addAuthRoutes(Router &router, ServerContext &context) {
    router.add(
        "POST", "api/auth/login", [&](const APIRequest &request) { return login(context, request); },
        Access::Everybody);
    router.add(
        "POST", "api/auth/register", [&](const APIRequest &request) { return registerAccount(context, request); },
        Access::Everybody);
    router.add(
        "GET", "api/auth/registration-status",
        [&](const APIRequest &) {
            return APIResponse::json({{"allowed", context.options.allowsRegistration}});
        },
        Access::Everybody);
    router.add("GET", "api/auth/me", [](const APIRequest &request) {
        return APIResponse::json({{"user", accountRecord(request.account())}});
    });
    router.add("POST", "api/auth/logout", [&](const APIRequest &request) { return logout(context, request); });
}
