#include "api/APIRoutes.h"

void addChatRoutes(Router &router, ServerContext &) {
    router.add("GET", "api/chat/unread", [](const APIRequest &) {
        return APIResponse::json({{"unread", nlohmann::json::object()}});
    });
    router.add("GET", "api/chat/users", [](const APIRequest &) {
        return APIResponse::json({{"users", nlohmann::json::array()}});
    });
}
