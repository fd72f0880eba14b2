#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"
#include "mime/HeaderEncoding.h"

// Mail that somebody's program got wrong. "X-Demo-Case" names the fault.

namespace {
/// A message written byte by byte, all of whose fields but the given ones are in order.
struct RawMessage {
    std::string fault;
    When when;
    std::string fields, body;
    bool hasFrom = true, hasDate = true;
    std::string folder = DemoFolder::inbox;
};

void addRaw(Mailbag &bag, const RawMessage &raw) {
    std::string head = "X-Demo-Case: " + raw.fault + "\nTo: Dana Okafor <dana@corvanite.example>\n";
    if (raw.hasFrom)
        head += "From: Harbour Office <office@oldharbour.example>\n";
    if (raw.hasDate)
        head += "Date: " + HeaderEncoding::date(bag.at(raw.when), 0) + "\n";
    bag.add(raw.folder, "S", raw.when, head + raw.fields + "\n" + raw.body);
}

const std::string utf8Text = "Content-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: 8bit\n";

std::vector<RawMessage> brokenHeaders() {
    std::string longSubject = "Re: Regarding";
    for (int i = 0; i < 60; ++i)
        longSubject += " the question of the question that was asked about the mooring fees";
    return {
        {"missing-date", daysAgo(34, 9, 0), "Subject: Mooring fees, undated\n" + utf8Text, "This letter has no date.\n",
         true, false},
        {"nonsense-date", daysAgo(34, 10, 0),
         "Date: Tomorrow, 42 Brumaire, half past tea\nSubject: Mooring fees, dated by the French calendar\n" + utf8Text,
         "This date is no date.\n", true, false},
        {"missing-from", daysAgo(35, 9, 0), "Subject: A letter from nobody\n" + utf8Text, "I forgot who I am.\n",
         false},
        {"empty-from", daysAgo(35, 10, 0), "From:\nSubject: A letter from an empty line\n" + utf8Text, "From whom?\n",
         false},
        {"empty-subject", daysAgo(36, 9, 0), "Subject:\n" + utf8Text, "The subject is empty, the harbour is not.\n"},
        {"missing-subject", daysAgo(36, 10, 0), utf8Text, "There is no subject at all.\n"},
        {"long-subject", daysAgo(37, 9, 0), "Subject: " + longSubject + "\n" + utf8Text,
         "To come to the point: yes.\n"},
        {"raw-8bit-headers", daysAgo(37, 10, 0),
         "Subject: Liegepl\xE4tze f\xFCr die \xDC"
         "berwinterung\nContent-Type: text/plain; charset=iso-8859-1\n",
         "Die Liegepl\xE4tze sind vergeben.\n"},
        {"raw-utf8-headers", daysAgo(37, 11, 0), "Subject: Liegeplätze für Gäste\n" + utf8Text,
         "Zwei Plätze sind frei.\n"},
        {"broken-encoded-word", daysAgo(38, 9, 0),
         "Subject: =?utf-8?B?TW9vcmluZyBmZWVz?= =?utf-8?Q?_for_=ZZ_winter?= =?nonsense\n" + utf8Text,
         "The subject was folded by a fool.\n"},
    };
}

std::vector<RawMessage> brokenTexts() {
    return {
        {"wrong-charset", daysAgo(39, 9, 0),
         "Subject: Winter timetable, mislabelled\nContent-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: "
         "8bit\n",
         "F\xE4hrplan f\xFCr den Winter: t\xE4glich um acht.\n"},
        {"unknown-charset", daysAgo(39, 10, 0),
         "Subject: Winter timetable, in an unknown script\nContent-Type: text/plain; charset=x-harbour-runes\n",
         "Every day at eight.\n"},
        {"broken-base64", daysAgo(40, 9, 0),
         "Subject: Berth plan, chewed\nContent-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n",
         "VGhlIGJlcnRoIHBsYW4g*!!!*aXMgYXR0YWNoZWQu\nCg=x=\n%%%\n"},
        {"broken-quoted-printable", daysAgo(40, 10, 0),
         "Subject: Berth plan, escaped\nContent-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: "
         "quoted-printable\n",
         "Berths 1 =XY to 4 = and half an escape =C3\nand one at the end="},
        {"nul-bytes", daysAgo(41, 9, 0), "Subject: Telex from the pilot station\nContent-Type: text/plain\n",
         std::string("Pilot\0 on\0 board\0 at six.\n", 26)},
        {"lone-carriage-returns", daysAgo(41, 10, 0), "Subject: Typed on an old terminal\nContent-Type: text/plain\n",
         "First line\rSecond line\rThird line\r"},
        {"unclosed-tags", daysAgo(42, 9, 0),
         "Subject: Notice to mariners, unclosed\nContent-Type: text/html; charset=utf-8\n",
         "<html><body><table><tr><td><b>Buoy 7 <i>has been <a "
         "href=\"https://oldharbour.example/buoys\">moved<ul><li>north<li>and east<div></table></p></span>Mind the "
         "shallows <font color=red>there"},
        {"header-only", daysAgo(42, 10, 0), "Subject: Nothing below\nContent-Type: text/plain\n", ""},
    };
}

DemoPart deeplyNested(int depth) {
    DemoPart part = textPart("At the bottom of the sea there is a text.\n");
    for (int i = 0; i < depth; ++i)
        part = multipart("mixed", {part});
    return part;
}

std::vector<RawMessage> brokenStructures() {
    const std::string mixed = "MIME-Version: 1.0\nContent-Type: multipart/mixed; boundary=\"quay\"\n";
    const DemoPart nested = deeplyNested(30);
    return {
        {"unterminated-boundary", daysAgo(43, 9, 0), "Subject: Tide tables, cut off\n" + mixed,
         "--quay\nContent-Type: text/plain\n\nThe tables follow.\n--quay\nContent-Type: text/csv; "
         "name=\"tables.csv\"\nContent-Disposition: attachment; filename=\"tables.csv\"\n\nday,level\n1,3.4\n2,3."},
        {"boundary-never-found", daysAgo(43, 10, 0), "Subject: Tide tables, boundless\n" + mixed,
         "There is no boundary in here.\n"},
        {"no-boundary-parameter", daysAgo(44, 9, 0),
         "Subject: Tide tables, unmarked\nMIME-Version: 1.0\nContent-Type: multipart/mixed\n",
         "--quay\nContent-Type: text/plain\n\nWhere do I end?\n--quay--\n"},
        {"deeply-nested", daysAgo(44, 10, 0),
         "Subject: Thirty boxes in boxes\nMIME-Version: 1.0\nContent-Type: " + nested.headers.front().second + "\n",
         nested.body},
    };
}
} // namespace

void addBrokenMail(Mailbag &bag) {
    for (const auto &group : {brokenHeaders(), brokenTexts(), brokenStructures()})
        for (const RawMessage &raw : group)
            addRaw(bag, raw);
    bag.add(DemoFolder::archive, "S", daysAgo(46, 9, 0), "This file has no header fields at all, only these words.\n");
    bag.add(DemoFolder::archive, "S", daysAgo(46, 10, 0), "");
}
