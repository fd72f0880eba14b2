#include "api/APIRoutes.h"
#include "api/ZIPArchive.h"
#include "mime/MessageContent.h"

#include <glib.h>

#include <algorithm>

namespace {

/// RFC 6266: a plain form for old readers and one with all characters.
std::string contentDisposition(const std::string &fileName) {
    std::string plain;
    for (const char c : fileName)
        plain += (c < ' ' || c == 0x7f || c == '"' || c == '\\') ? '_' : c;
    const std::unique_ptr<gchar, decltype(&g_free)> encoded(g_uri_escape_string(fileName.c_str(), nullptr, FALSE),
                                                            g_free);
    return "attachment; filename=\"" + plain + "\"; filename*=UTF-8''" + encoded.get();
}

APIResponse fileResponse(std::string bytes, const std::string &contentType, const std::string &fileName) {
    APIResponse response;
    response.body = std::move(bytes);
    response.contentType = contentType;
    response.headers["Content-Disposition"] = contentDisposition(fileName);
    response.headers["X-Content-Type-Options"] = "nosniff";
    return response;
}

APIResponse attachment(Mailbox &mailbox, const APIRequest &request) {
    const auto number = request.queryText("part");
    const auto message = parseMessage(mailbox.bytes(request.queryText("folder"), request.queryInteger("uid", 0)));
    for (const auto &leaf : leavesOf(message)) {
        if (leaf.number == number)
            return fileResponse(leaf.content(), leaf.contentType(), leaf.fileName());
    }
    throw APIError(404, "The message has no part " + number);
}

APIResponse allAttachments(Mailbox &mailbox, const APIRequest &request) {
    const auto message = parseMessage(mailbox.bytes(request.queryText("folder"), request.queryInteger("uid", 0)));
    const auto content = readContent(message);
    std::vector<ZIPEntry> entries;
    for (const auto &leaf : leavesOf(message)) {
        const auto isListed = [&](const MessageAttachment &file) {
            return file.partNumber == leaf.number && file.contentID.empty();
        };
        if (std::any_of(content.attachments.begin(), content.attachments.end(), isListed))
            entries.push_back({leaf.fileName(), leaf.content()});
    }
    const auto name = request.queryText("name", "attachments");
    return fileResponse(zipArchive(entries), "application/zip", name + ".zip");
}

} // namespace

void addAttachmentRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/emails/attachment",
               [&](const APIRequest &request) { return attachment(context.mailbox(request), request); });
    router.add("GET", "api/emails/attachments/zip",
               [&](const APIRequest &request) { return allAttachments(context.mailbox(request), request); });
}
