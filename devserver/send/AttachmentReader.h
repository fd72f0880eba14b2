#pragma once

#include "mailbox/Mailbox.h"
#include "mime/MIMEPart.h"
#include "send/OutgoingMessage.h"

#include <nlohmann/json.hpp>

/// Turns the attachments of a request into files; fails with an APIError.
class AttachmentReader {
public:
    explicit AttachmentReader(Mailbox &mailbox);

    std::vector<OutgoingFile> read(const nlohmann::json &attachments);

private:
    OutgoingFile readOne(const nlohmann::json &attachment);
    std::string referenced(const nlohmann::json &reference);
    const MIMEMessage &message(const std::string &folder, std::int64_t uid);

    Mailbox &m_mailbox;
    /// One message often lends several files.
    std::map<std::pair<std::string, std::int64_t>, MIMEMessage> m_messages;
};
