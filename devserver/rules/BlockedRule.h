#pragma once

#include <string>

/// What an account does not want to receive.
struct BlockedRule {
    std::string id;
    /// "name" or "subject"; anything else means the sender.
    std::string type;
    std::string pattern;
};

/// Whether the rule is meant for a message with this `From` header, such as `Name <a@b>`, and this subject. Letter case
/// does not count. "*" stands for any text; without one, a name or subject matches anywhere, and a sender is an address
/// or a domain with its subdomains.
bool matches(const BlockedRule &rule, const std::string &from, const std::string &subject);
