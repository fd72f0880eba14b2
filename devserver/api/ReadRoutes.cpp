#include "api/APIRoutes.h"
#include "maildir/MaildirName.h"
#include "mime/MessageContent.h"
#include "mime/MessageHeaders.h"
#include "mime/TextDecoding.h"

namespace {

nlohmann::json addressRecords(const std::vector<MessageAddress> &addresses) {
    auto records = nlohmann::json::array();
    for (const auto &address : addresses)
        records.push_back({{"name", address.name}, {"address", address.address}});
    return records;
}

nlohmann::json attachmentRecords(const std::vector<MessageAttachment> &attachments) {
    auto records = nlohmann::json::array();
    for (const auto &attachment : attachments) {
        nlohmann::json record{
            {"filename", attachment.fileName.empty() ? "attachment" : attachment.fileName},
            {"contentType", attachment.contentType},
            {"size", attachment.size},
            {"partNum", attachment.partNumber},
            {"part", attachment.part},
        };
        if (!attachment.contentID.empty())
            record["cid"] = attachment.contentID;
        records.push_back(std::move(record));
    }
    return records;
}

nlohmann::json detailRecord(const MessageSummary &summary, const std::string &bytes, const std::string &folder) {
    const auto message = parseMessage(bytes);
    const auto headers = readHeaders(message, summary.timestamp);
    const auto content = readContent(message);
    const MaildirName name(summary.file.fileName);
    nlohmann::json record{
        {"uid", summary.uid},
        {"subject", headers.subject},
        {"from", addressRecords(headers.fromList)},
        {"to", addressRecords(headers.toList)},
        {"cc", addressRecords(headers.ccList)},
        {"date", headers.date},
        {"timestamp", headers.timestamp},
        {"seen", name.has('S')},
        {"flagged", name.has('F')},
        {"answered", name.has('R')},
        {"attachments", attachmentRecords(content.attachments)},
        {"size", bytes.size()},
        {"message_id", headers.messageID},
        {"in_reply_to", headers.inReplyTo},
        {"folder", folder},
    };
    // Readers take the first form that has its key, even an empty one.
    if (!content.html.empty())
        record["body_html"] = content.html;
    if (!content.text.empty())
        record["body_text"] = content.text;
    return record;
}

APIResponse read(Mailbox &mailbox, const APIRequest &request) {
    const auto uid = request.pathInteger(0);
    const auto folder = request.queryText("folder");
    const auto bytes = mailbox.bytes(folder, uid);
    mailbox.setFlag(folder, {uid}, 'S', true);
    return APIResponse::json(detailRecord(mailbox.summary(folder, uid), bytes, folder));
}

/// Mail has CR LF at the ends of its lines, whatever the Maildir's files have.
std::string withWireLineEnds(const std::string &bytes) {
    std::string lines;
    for (const char c : bytes) {
        if (c == '\n' && (lines.empty() || lines.back() != '\r'))
            lines += '\r';
        lines += c;
    }
    return lines;
}

} // namespace

void addReadRoutes(Router &router, ServerContext &context) {
    router.add("GET", "api/emails/read/:uid",
               [&](const APIRequest &request) { return read(context.mailbox(request), request); });
    router.add("GET", "api/emails/source/:uid", [&](const APIRequest &request) {
        const auto bytes = context.mailbox(request).bytes(request.queryText("folder"), request.pathInteger(0));
        return APIResponse::json({{"source", decodeText(withWireLineEnds(bytes), "")}});
    });
}
