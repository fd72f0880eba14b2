#pragma once

#include <chrono>
#include <string>
#include <vector>

/// A moment told from the day on which the mailbox is made.
struct When {
    int days = 0;
    /// Minutes before now where `days` is 0, else minutes after midnight UTC of the day so many days ago.
    int minutes = 0;
};
When minutesAgo(int minutes);
When hoursAgo(int hours, int minutes = 0);
/// @param days at least 1
When daysAgo(int days, int hour, int minute);

/// The directories of Maildir++ folders; the inbox is the root.
struct DemoFolder {
    static constexpr const char *inbox = "", *sent = ".Sent", *drafts = ".Drafts", *trash = ".Trash", *junk = ".Junk",
                                *archive = ".Archive", *projects = ".Projects", *harbour = ".Projects.Harbour",
                                *receipts = ".Receipts", *newsletters = ".Newsletters",
                                // "Küste & Häfen" in the modified UTF-7 of RFC 3501
                                                             *coast = ".K&APw-ste &- H&AOQ-fen",
                                // stays empty
                                                                 *travel = ".Travel";
    static const std::vector<std::string> &all();
};

struct DemoMessage {
    std::string folder;
    /// Letters of Maildir flags, in any order. Without S the message is unread.
    std::string flags;
    std::chrono::system_clock::time_point date;
    std::string bytes;
};

/// Collects what the themes write.
class Mailbag {
public:
    using Time = std::chrono::system_clock::time_point;

    explicit Mailbag(Time now);
    Time at(When when) const;
    void add(const std::string &folder, const std::string &flags, When when, std::string bytes);
    const std::vector<DemoMessage> &messages() const { return m_messages; }

private:
    Time m_now;
    std::vector<DemoMessage> m_messages;
};
