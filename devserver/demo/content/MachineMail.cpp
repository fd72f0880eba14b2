#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"

// What mail systems write to each other's people: bounces, absences, receipts, digests.

namespace {
const DemoPerson daemon{"Mail Delivery System", "mailer-daemon@corvanite.example", 0};

DemoPart reportPart(const std::string &type, const std::string &text) {
    return {{{"Content-Type", type}, {"Content-Transfer-Encoding", "7bit"}}, text};
}

void addBounce(Mailbag &bag, When when, const std::string &recipient, const std::string &status,
               const std::string &reason) {
    const std::string words = "I could not deliver your message to " + recipient + ".\n\nThe other side said:\n\n    " +
                              status + " " + reason + "\n\nYour message is attached.\n";
    const std::string delivery = "Reporting-MTA: dns; corvanite.example\n\nFinal-Recipient: rfc822; " + recipient +
                                 "\nAction: failed\nStatus: " + status + "\nDiagnostic-Code: smtp; 550 " + status +
                                 " " + reason + "\n";
    const std::string original = "From: Dana Okafor <dana@corvanite.example>\nTo: " + recipient +
                                 "\nSubject: Tide tables for next year\n\nAs promised. Dana\n";
    addNotice(bag, {daemon,
                    when,
                    "Undelivered mail returned to sender",
                    multipart("report",
                              {textPart(words), reportPart("message/delivery-status", delivery),
                               reportPart("message/rfc822", original)},
                              "; report-type=delivery-status"),
                    DemoFolder::inbox,
                    "S",
                    {{"Auto-Submitted", "auto-replied"}}});
}

void addAbsence(Mailbag &bag, const DemoPerson &person, When when, const std::string &subject,
                const std::string &text) {
    addNotice(bag, {person,
                    when,
                    "Automatic reply: " + subject,
                    textPart(text),
                    DemoFolder::inbox,
                    "S",
                    {{"Auto-Submitted", "auto-replied"}, {"Precedence", "bulk"}}});
}

void addReadReceipt(Mailbag &bag) {
    const std::string disposition =
        "Reporting-UA: portofmerrow.example\nFinal-Recipient: rfc822; r.achterberg@portofmerrow.example\n"
        "Original-Message-ID: <041C30251DCE29B0@corvanite.example>\n"
        "Disposition: manual-action/MDN-sent-manually; displayed\n";
    addNotice(bag, {People::rosalind, daysAgo(1, 9, 2), "Read: Berth 4: condition of fenders and proposed repair",
                    multipart("report",
                              {textPart("Your message was displayed. This does not say that it was understood.\n"),
                               reportPart("message/disposition-notification", disposition)},
                              "; report-type=disposition-notification")});
}

DemoPart digestMessage(const std::string &from, const std::string &subject, const std::string &text) {
    return {{{"Content-Type", "message/rfc822"}},
            "From: " + from + "\nSubject: " + subject + "\nDate: Mon, 02 Mar 2020 09:00:00 +0000\nMessage-ID: <" +
                std::to_string(subject.size() * 7919 + text.size()) + "@lists.gaugekeepers.example>\n\n" + text};
}

void addListDigest(Mailbag &bag, When when, int number, const std::vector<DemoPart> &messages) {
    const std::string title = "Gaugekeepers digest, volume 9, issue " + std::to_string(number);
    const std::string contents = title + "\n\nSend contributions to gaugekeepers@lists.gaugekeepers.example.\n";
    addNotice(bag, {{"Gaugekeepers", "gaugekeepers-request@lists.gaugekeepers.example", 0},
                    when,
                    title,
                    multipart("mixed", {textPart(contents), multipart("digest", messages)}),
                    DemoFolder::inbox,
                    "S",
                    {{"List-Id", "People who keep gauges <gaugekeepers.lists.gaugekeepers.example>"},
                     {"Precedence", "list"}}});
}
} // namespace

void addMachineMail(Mailbag &bag) {
    addBounce(bag, daysAgo(4, 10, 1), "captain@bluewhistle.example", "5.1.1", "no such person here");
    addBounce(bag, daysAgo(22, 13, 13), "crew@tallship.example", "5.2.2", "mailbox full since the regatta");
    addBounce(bag, daysAgo(55, 7, 40), "info@lost-lagoon.example", "5.4.4", "host not found");
    addAbsence(bag, People::quentin, daysAgo(2, 9, 31), "Eelgrass map",
               "I am away until Monday. In urgent matters of planning please turn to the front desk, in urgent matters "
               "of eelgrass to Olive.\n");
    addAbsence(bag, People::anselm, daysAgo(28, 6, 12), "Anfrage Spundwand",
               "Vielen Dank für Ihre Nachricht. Ich bin bis Ende der Woche auf der Messe und lese abends.\n");
    addAbsence(bag, People::olive, daysAgo(38, 16, 4), "Positions",
               "Out on the marsh, no signal. Back when the tide is.\n");
    addReadReceipt(bag);
    for (int issue = 0; issue < 4; ++issue)
        addListDigest(bag, daysAgo(5 + 7 * issue, 22, 0), 44 - issue,
                      {digestMessage("wilma@stillwater.example", "Stilling wells and mussels",
                                     "They are back. Copper tape works until it does not.\n"),
                       digestMessage("ode@fjordmeter.example", "Re: Stilling wells and mussels",
                                     "Paint it. Then paint it again.\n"),
                       digestMessage("kit@lagoonlog.example", "Logger clock drift, issue " + std::to_string(44 - issue),
                                     "Two seconds a month. I blame the cold.\n")});
}
