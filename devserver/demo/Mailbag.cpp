#include "demo/Mailbag.h"

#include <algorithm>

When minutesAgo(int minutes) {
    return {0, minutes};
}

When hoursAgo(int hours, int minutes) {
    return {0, hours * 60 + minutes};
}

When daysAgo(int days, int hour, int minute) {
    return {std::max(days, 1), hour * 60 + minute};
}

const std::vector<std::string> &DemoFolder::all() {
    static const std::vector<std::string> folders = {inbox,    sent,    drafts,   trash,       junk,  archive,
                                                     projects, harbour, receipts, newsletters, coast, travel};
    return folders;
}

Mailbag::Mailbag(Time now)
    : m_now(std::chrono::floor<std::chrono::seconds>(now)) {}

Mailbag::Time Mailbag::at(When when) const {
    if (when.days == 0)
        return m_now - std::chrono::minutes(when.minutes);
    // The odd seconds keep dates from looking like a timetable's.
    const auto midnight = std::chrono::floor<std::chrono::days>(m_now) - std::chrono::days(when.days);
    return midnight + std::chrono::minutes(when.minutes) + std::chrono::seconds((when.minutes * 37 + when.days) % 60);
}

void Mailbag::add(const std::string &folder, const std::string &flags, When when, std::string bytes) {
    m_messages.push_back({folder, flags, at(when), std::move(bytes)});
}
