#include "api/APIRoutes.h"
#include "mailbox/MailboxJSON.h"

void addFolderRoutes(Router &router, ServerContext &context) {
    const auto list = [&](const APIRequest &request) {
        return APIResponse::json({{"folders", folderRecords(context.mailbox(request).folders())}});
    };
    router.add("GET", "api/folders", list);
    // Counting is cheap here, so that the quick answer is also the right one.
    router.add("GET", "api/folders/cached", list);
    router.add("POST", "api/folders/create", [&](const APIRequest &request) {
        context.mailbox(request).createFolder(request.bodyText("name"));
        return APIResponse::done();
    });
    router.add("POST", "api/folders/rename", [&](const APIRequest &request) {
        context.mailbox(request).renameFolder(request.bodyText("old_name"), request.bodyText("new_name"));
        return APIResponse::done();
    });
    router.add("POST", "api/folders/delete", [&](const APIRequest &request) {
        context.mailbox(request).removeFolder(request.bodyText("name"));
        return APIResponse::done();
    });
}
