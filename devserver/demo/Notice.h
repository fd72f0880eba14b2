#pragma once

#include <string>
#include <utility>
#include <vector>

#include "demo/Mailbag.h"
#include "demo/People.h"
#include "demo/mime/DemoPart.h"
#include "demo/mime/MessageBuilder.h"

/// A single message that is no part of a conversation.
struct Notice {
    DemoPerson from;
    When when;
    std::string subject;
    DemoPart body;
    std::string folder = DemoFolder::inbox;
    std::string flags = "S";
    /// Further header fields, as they stand on the wire.
    std::vector<std::pair<std::string, std::string>> headers = {};
    std::string charset = "UTF-8";
};

/// The message up to its body, for those who put something unusual behind it.
MessageBuilder startNotice(const Mailbag &bag, const Notice &notice);
void addNotice(Mailbag &bag, const Notice &notice);
/// Text and HTML of the same words.
DemoPart plainAndHTML(const std::string &text, const std::string &html);
