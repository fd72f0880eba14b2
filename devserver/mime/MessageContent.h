#pragma once

#include "mime/MIMEPart.h"

struct MessageAttachment {
    std::string fileName;
    std::string contentType;
    std::size_t size = 0;
    /// Dotted, as IMAP counts parts.
    std::string partNumber;
    /// Position among the message's leaves, from 1.
    int part = 0;
    /// Set only when the HTML body shows this part.
    std::string contentID;
};

/// What a reader sees of a message: its body in up to two forms, and the rest as files.
struct MessageContent {
    std::string html;
    std::string text;
    std::vector<MessageAttachment> attachments;
};

/// Images that the HTML refers to by "cid:" stand in it as data URLs.
MessageContent readContent(const MIMEMessage &message);

/// The start of the body as plain text, and whether there are files; for lists and search.
struct MessageOutline {
    std::string text;
    bool hasAttachment = false;
};
MessageOutline readOutline(const MIMEMessage &message);
