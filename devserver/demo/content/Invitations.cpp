#include <array>
#include <ctime>

#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"

namespace {
struct Invitation {
    DemoPerson organiser;
    When sent;
    std::string title, place;
    /// Days between the invitation and the meeting.
    int daysAhead = 2;
    std::string method = "REQUEST";
    std::string flags = "S";
};

std::string stamp(Mailbag::Time time) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm fields{};
    gmtime_r(&seconds, &fields);
    std::array<char, 20> out{};
    std::strftime(out.data(), out.size(), "%Y%m%dT%H%M00Z", &fields);
    return out.data();
}

/// A comma would begin another value.
std::string escaped(const std::string &text) {
    std::string out;
    for (const char character : text)
        out += character == ',' ? "\\," : std::string(1, character);
    return out;
}

std::string calendar(const Mailbag &bag, const Invitation &invitation) {
    const Mailbag::Time start = std::chrono::floor<std::chrono::days>(bag.at(invitation.sent)) +
                                std::chrono::days(invitation.daysAhead) + std::chrono::hours(9);
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//Corvanite//Calendar//EN\r\nMETHOD:" + invitation.method +
           "\r\nBEGIN:VEVENT\r\nUID:" + stamp(start) + "-" + invitation.organiser.address +
           "\r\nDTSTAMP:" + stamp(bag.at(invitation.sent)) + "\r\nDTSTART:" + stamp(start) +
           "\r\nDTEND:" + stamp(start + std::chrono::hours(1)) + "\r\nSUMMARY:" + escaped(invitation.title) +
           "\r\nLOCATION:" + escaped(invitation.place) + "\r\nORGANIZER;CN=" + invitation.organiser.name +
           ":mailto:" + invitation.organiser.address +
           "\r\nATTENDEE;PARTSTAT=NEEDS-ACTION;RSVP=TRUE;CN=Dana Okafor:mailto:dana@corvanite.example\r\nSTATUS:" +
           (invitation.method == "CANCEL" ? "CANCELLED" : "CONFIRMED") + "\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
}

void addInvitation(Mailbag &bag, const Invitation &invitation) {
    const std::string events = calendar(bag, invitation);
    const std::string text = invitation.title + "\nWhere: " + invitation.place + "\n";
    const DemoPart alternatives = multipart(
        "alternative",
        {textPart(text), htmlPart("<p><b>" + invitation.title + "</b><br>Where: " + invitation.place + "</p>\n"),
         textPart(events, {.subtype = "calendar",
                           .encoding = PartEncoding::Base64,
                           .parameters = "; method=" + invitation.method})});
    const std::string prefix = invitation.method == "CANCEL" ? "Cancelled: " : "Invitation: ";
    addNotice(bag, {invitation.organiser, invitation.sent, prefix + invitation.title,
                    multipart("mixed", {alternatives, attachmentPart({"invite.ics", "application/ics", events})}),
                    DemoFolder::inbox, invitation.flags});
}
} // namespace

void addInvitations(Mailbag &bag) {
    for (const Invitation &invitation :
         {Invitation{People::rosalind, hoursAgo(3, 5), "Walk along Berth 4", "Lower landing, Port of Merrow", 3,
                     "REQUEST", ""},
          Invitation{People::priya, daysAgo(1, 5, 0), "Tide API 2.3: go or no-go", "Blue room", 3},
          Invitation{People::sunniva, daysAgo(8, 8, 15), "Fire drill", "Courtyard", 6},
          Invitation{People::quentin, daysAgo(26, 14, 30), "Dredging: site visit", "Inner basin, north quay", 5},
          Invitation{People::quentin, daysAgo(25, 9, 0), "Dredging: site visit", "Inner basin, north quay", 4,
                     "CANCEL"}})
        addInvitation(bag, invitation);
}
