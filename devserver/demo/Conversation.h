#pragma once

#include <string>
#include <vector>

#include "demo/Mailbag.h"
#include "demo/People.h"
#include "demo/mime/DemoPart.h"

/// One message of a conversation. What is left empty follows from its place in the conversation.
struct DemoTurn {
    DemoPerson from;
    When when;
    std::string text;
    /// Flags besides S and R; "u" leaves the message unread.
    std::string flags = {};
    std::string prefix = {};
    std::string folder = {};
    std::vector<DemoPerson> to = {};
    std::vector<DemoPart> attachments = {};
};

struct Conversation {
    std::string subject;
    std::vector<DemoPerson> people;
    std::vector<DemoTurn> turns;
    /// Where messages of others lie; those of Dana lie in the sent folder.
    std::string folder = DemoFolder::inbox;
};

/// Adds the conversation's messages, each quoting the one before it in its writer's style.
void addConversation(Mailbag &bag, const Conversation &conversation);
