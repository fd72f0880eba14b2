#pragma once

#include "mime/MessageHeaders.h"

struct OutgoingFile {
    std::string name;
    /// "type/subtype"
    std::string contentType;
    std::string bytes;
};

/// A message as its writer left it.
struct OutgoingMessage {
    MessageAddress from;
    std::vector<MessageAddress> to, cc, bcc, replyTo;
    std::string subject;
    std::string html;
    std::vector<OutgoingFile> files;
};
