#pragma once

#include <string>

/// The name of a message file: "<base>:2,<flags>", or the base alone. The base is the message's identity and never
/// changes; the flags are letters in ASCII order (D draft, F flagged, P passed, R replied, S seen, T trashed).
struct MaildirName {
    std::string base;
    std::string flags;

    explicit MaildirName(const std::string &fileName);

    bool has(char flag) const { return flags.find(flag) != std::string::npos; }
    void set(char flag, bool on);
    std::string fileName() const { return base + ":2," + flags; }
};

/// A base name that no other delivery has.
std::string uniqueMaildirBase();
