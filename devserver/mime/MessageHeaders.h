#pragma once

#include "mime/MIMEPart.h"

struct MessageAddress {
    std::string name;
    std::string address;
};

/// The headers that the client is shown, decoded, each on one line.
struct MessageHeaders {
    std::string subject;
    /// Addresses as text, such as `Name <a@b>`, comma between them.
    std::string from, to, cc;
    std::vector<MessageAddress> fromList, toList, ccList;
    /// "Sun, 22 Nov 2026 21:06:28 +0000"
    std::string date;
    /// Seconds since 1970.
    double timestamp = 0;
    /// With their angle brackets.
    std::string messageID, inReplyTo;
};

/// `fallbackTime`, in seconds since 1970, stands in for a date that is missing or unreadable.
MessageHeaders readHeaders(const MIMEMessage &message, double fallbackTime);
