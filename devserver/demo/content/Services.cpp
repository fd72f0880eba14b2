#include "demo/MailText.h"
#include "demo/Notice.h"
#include "demo/ServicePage.h"
#include "demo/content/DemoThemes.h"

namespace {
struct ServiceNote {
    DemoPerson from;
    std::string color;
    When when;
    std::string subject, text;
    /// Shown large where it is not empty.
    std::string number = {};
    std::string flags = "S";
    std::string folder = DemoFolder::inbox;
};

DemoPart body(const ServiceNote &note) {
    const std::string shown = MailText::replaced(MailText::html(note.text), note.number.empty() ? "\x01" : note.number,
                                                 "<b>" + note.number + "</b>");
    const std::string large = note.number.empty() ? "" : ServicePage::bigNumber(note.number);
    return plainAndHTML(note.text, ServicePage{note.from.name, note.color, note.subject, shown + large,
                                               "This message was sent automatically. Please do not reply."}
                                       .html());
}

const DemoPerson bank{"Harbour Savings", "no-reply@harboursavings.example", 0};
const DemoPerson forge{"Codeberth", "noreply@codeberth.example", 0};
const DemoPerson parcel{"Pelican Parcel", "track@pelicanparcel.example", 60};
const DemoPerson council{"Merrow Bay Council", "accounts@merrowbay-council.example", 0};
const DemoPerson ferry{"Ferryline Merrow", "account@ferryline.example", 0};
const DemoPerson library{"Merrow Public Library", "desk@merrowlibrary.example", 0};
const DemoPerson energy{"Gullwing Energy", "service@gullwing-energy.example", 60};
const DemoPerson cloud{"Cloudberry Hosting", "status@cloudberry-hosting.example", 120};

std::vector<ServiceNote> codes() {
    return {
        {bank, "#14506b", minutesAgo(6), "Sign in to Harbour Savings",
         "Your verification code is 482913.\n\nIt is valid for ten minutes. We never ask for it by telephone.\n",
         "482913", ""},
        {forge, "#2f3b52", hoursAgo(26), "907 114: confirm it is you",
         "Enter the code 907114 to finish signing in to Codeberth from a new browser.\n", "907114"},
        {ferry, "#0b6e99", daysAgo(3, 6, 30), "Your Ferryline login",
         "55210 is your login code.\n\nSee you on board.\n", "55210"},
        {council, "#5b4a8a", daysAgo(9, 12, 20), "One-time password for council services",
         "Your one-time password: 73104862\n\nIf you did not ask for it, ignore this message.\n", "73104862"},
        {cloud, "#8a4fff", daysAgo(17, 8, 2), "Two steps are better than one",
         "Security token: K7QX29\n\nUse it within five minutes.\n", "K7QX29"},
        {library, "#7c5a2c", daysAgo(29, 16, 45), "Confirm your address",
         "Use 4471 to sign in at the desk or at home.\n", "4471"},
        {bank, "#14506b", daysAgo(36, 9, 15), "New payee: Holloway & Sons",
         "Confirmation code: 660218\n\nAmount: 640.00 EUR\n", "660218"},
    };
}

std::vector<ServiceNote> resets() {
    return {
        {forge, "#2f3b52", daysAgo(5, 10, 50), "Reset your password",
         "Somebody, we hope you, asked for a new password for the account dana.\n\nOpen this link within an hour:\n"
         "https://codeberth.example/reset/5d1e0c7a9b\n\nIf it was not you, nothing has changed.\n"},
        {library, "#7c5a2c", daysAgo(48, 14, 0), "Your new library PIN",
         "Choose a new PIN here:\nhttps://merrowlibrary.example/pin/88a1\n"},
        {energy, "#d17b0f", daysAgo(70, 7, 7), "Password changed",
         "The password of your account was changed yesterday evening.\n\nNot you? Call us at once: 0555 0142 900.\n"},
    };
}

std::vector<ServiceNote> parcels() {
    return {
        {parcel, "#b8860b", hoursAgo(1, 10), "Out for delivery: your parcel from Paper Lantern Books",
         "Good news: parcel PP 4471 2290 is in the van and will be with you between 14:10 and 15:40.\n\n"
         "Driver: Stellan\nSafe place: behind the rain barrel\n",
         "", ""},
        {parcel, "#b8860b", daysAgo(1, 18, 20), "Your parcel has reached Merrow",
         "Parcel PP 4471 2290 has arrived at our depot on the north quay.\n"},
        {parcel, "#b8860b", daysAgo(2, 20, 5), "We have your parcel",
         "Paper Lantern Books has handed us parcel PP 4471 2290. We expect to bring it in two days.\n"},
        {parcel, "#b8860b", daysAgo(15, 11, 50), "Delivered: left with a neighbour",
         "Parcel PP 4460 8123 from Merrow Chandlery was left with Achterberg, number 14.\n"},
        {parcel, "#b8860b", daysAgo(39, 9, 30), "Sorry we missed you",
         "We rang twice. Your parcel waits at the tobacconist on Cable Street until Saturday.\n"},
    };
}

std::vector<ServiceNote> others() {
    return {
        {energy, "#d17b0f", daysAgo(2, 5, 0), "Your monthly bill is ready",
         "You used 148 kWh, twelve less than last year. We will collect 61.30 EUR on the 28th.\n"},
        {energy, "#d17b0f", daysAgo(32, 5, 0), "Your monthly bill is ready",
         "You used 131 kWh. We will collect 55.10 EUR on the 28th.\n"},
        {library, "#7c5a2c", daysAgo(1, 9, 0), "Two loans are due on Friday",
         "- Knots of the Western Isles\n- A Short History of Fog\n\nYou can renew both once.\n"},
        {cloud, "#8a4fff", daysAgo(4, 2, 15), "Resolved: slow disks in hall 2",
         "Between 01:20 and 01:55 UTC writes took up to two seconds. No data were lost. A fan had failed and was "
         "replaced.\n"},
        {cloud, "#8a4fff", daysAgo(4, 1, 31), "Investigating: slow disks in hall 2",
         "We are looking into slow writes in hall 2. Next update in half an hour.\n"},
        {forge, "#2f3b52", hoursAgo(8, 30), "[tide-api] Build 1184 passed on main",
         "All 412 checks passed in 6 minutes 12 seconds.\n\nPriya Raman: Say when a gauge was last levelled\n"},
        {forge, "#2f3b52", hoursAgo(20, 5), "[tide-api] Build 1183 failed on main",
         "3 of 412 checks failed.\n\n- csv_export rounds to centimetres\n- csv_export keeps the sign\n- csv_export "
         "agrees with json\n"},
        {forge, "#2f3b52", daysAgo(1, 16, 2),
         "[tide-api] Tobias Lindqvist asks for your review: Round CSV to centimetres",
         "One line changed, three tests added.\n\nhttps://codeberth.example/corvanite/tide-api/changes/88\n"},
        {forge, "#2f3b52", daysAgo(6, 13, 55), "[tide-logger] New issue: the gull (again)",
         "Henk wrote: she has discovered the conduit. So far it is holding.\n"},
        {bank, "#14506b", daysAgo(10, 4, 0), "Your statement for the month",
         "Your statement is ready in the vault. Sign in to read it.\n"},
        {bank, "#14506b", daysAgo(41, 4, 0), "Your statement for the month",
         "Your statement is ready in the vault. Sign in to read it.\n"},
        {council, "#5b4a8a", daysAgo(24, 8, 0), "Bin day moves to Thursday",
         "Because of the holiday your bins are emptied on Thursday instead of Wednesday.\n"},
        {ferry, "#0b6e99", daysAgo(1, 17, 30), "Timetable change at Berth 4",
         "Until the end of March our boats approach Berth 4 more slowly. Please allow five more minutes.\n"},
        {ferry, "#0b6e99", daysAgo(27, 15, 10), "Cancelled: the 22:30 tonight",
         "Because of the surge warning the 22:30 does not sail. Tickets stay valid.\n"},
    };
}
} // namespace

void addServiceNotes(Mailbag &bag) {
    for (const auto &group : {codes(), resets(), parcels(), others()})
        for (const ServiceNote &note : group)
            addNotice(bag, {note.from, note.when, note.subject, body(note), note.folder, note.flags});
}
