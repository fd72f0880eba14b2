#include "mailbox/MailboxJSON.h"

#include "maildir/FolderName.h"
#include "maildir/MaildirName.h"

nlohmann::json summaryRecord(const MessageSummary &message) {
    const MaildirName name(message.file.fileName);
    return {
        {"uid", message.uid},
        {"subject", message.subject},
        {"from", message.from},
        {"to", message.to},
        {"date", message.date},
        {"timestamp", message.timestamp},
        {"seen", name.has('S')},
        {"flagged", name.has('F')},
        {"answered", name.has('R')},
        {"has_attachment", message.hasAttachment},
        {"size", message.size},
        {"message_id", message.messageID},
        {"in_reply_to", message.inReplyTo},
        {"body_text", message.preview},
    };
}

nlohmann::json listRecord(const ListPage &page, const std::string &folder, const ListQuery &query) {
    auto emails = nlohmann::json::array();
    for (const auto &message : page.messages)
        emails.push_back(summaryRecord(message));
    return {
        {"emails", std::move(emails)},
        {"total", page.total},
        {"page", query.page},
        {"pages", (page.total + query.perPage - 1) / query.perPage},
        {"folder", folder},
    };
}

nlohmann::json folderRecords(const std::vector<MailboxFolder> &folders) {
    auto records = nlohmann::json::array();
    for (const auto &folder : folders) {
        records.push_back({
            {"path", folder.path},
            {"name", folderDisplayName(folder.path)},
            {"type", folder.role},
            {"total", folder.counts.total},
            {"unseen", folder.counts.unseen},
        });
    }
    return records;
}

nlohmann::json stateRecord(const FolderState &state, const std::string &accountID) {
    return {
        {"folder", state.folder},
        {"total", state.counts.total},
        {"unseen", state.counts.unseen},
        {"unread_uids", state.unreadUIDs},
        {"uid_validity", std::to_string(state.numbers.uidValidity)},
        {"uid_next", state.numbers.uidNext},
        {"account_id", accountID},
        {"version", static_cast<double>(state.numbers.version)},
    };
}
