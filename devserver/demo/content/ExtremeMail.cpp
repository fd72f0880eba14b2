#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"

// Well-formed messages that are very large, very tall or very small. "X-Demo-Case" names each.

namespace {
const DemoPerson archivist{"Merrow Records Office", "records@merrow-archive.example", 0};

void addCase(Mailbag &bag, const std::string &name, When when, const std::string &subject, const DemoPart &body) {
    addNotice(bag, {archivist, when, subject, body, DemoFolder::inbox, "S", {{"X-Demo-Case", name}}});
}

DemoPart plainHTML(const std::string &html) {
    return textPart(html, {.subtype = "html", .encoding = PartEncoding::EightBit});
}

/// Rows of a ship register until the page has so many bytes.
std::string registerPage(size_t bytes) {
    std::string out = "<html><body><h1>Ship register</h1>\n<table border=\"1\" cellpadding=\"4\">\n";
    for (int number = 1; out.size() < bytes; ++number)
        out += "<tr><td>" + std::to_string(number) + "</td><td>Vessel " + std::to_string(number * 7919 % 100000) +
               "</td><td>arrived with the tide, left with the tide, paid her dues</td></tr>\n";
    return out + "</table><p>End of the register.</p></body></html>\n";
}

/// @param entries paragraphs of some 25 pixels
std::string logbookPage(int entries) {
    std::string out = "<html><body style=\"margin:0\"><h1 id=\"top\">TOP OF THE LOGBOOK</h1>\n";
    for (int entry = 1; entry <= entries; ++entry) {
        out += "<p style=\"height:20px;margin:0 0 5px;overflow:hidden\">Entry " + std::to_string(entry) + ", wind " +
               std::to_string(entry * 31 % 9) + "</p>\n";
        if (entry == entries / 2)
            out += "<h2 id=\"middle\">MIDDLE OF THE LOGBOOK</h2>\n";
    }
    return out + "<h1 id=\"end\">END OF THE LOGBOOK</h1></body></html>\n";
}

std::string longText(size_t bytes) {
    std::string out = "The harbour log, typed up from the ledger.\n\n";
    for (int day = 1; out.size() < bytes; ++day)
        out += "Day " + std::to_string(day) + ". Wind " + std::to_string(day * 13 % 360) +
               " degrees, glass steady. Two colliers in, one brig out, the pilot wet as ever.\n";
    return out + "\nHere the ledger ends.\n";
}
} // namespace

void addExtremeMail(Mailbag &bag) {
    addCase(bag, "html-5-megabytes", daysAgo(47, 9, 0), "The whole ship register",
            plainHTML(registerPage(5 * 1024 * 1024)));
    addCase(bag, "million-pixels-tall", daysAgo(48, 9, 0), "The logbook, unrolled", plainHTML(logbookPage(40000)));
    addCase(bag, "million-pixels-in-one-box", daysAgo(48, 10, 0), "A very tall drawing",
            htmlPart("<html><body style=\"margin:0\"><h1>TOP OF THE DRAWING</h1><div "
                     "style=\"height:500000px;background:linear-gradient"
                     "(#cfe8ff,#004)\"></div><h1>MIDDLE OF THE DRAWING</h1><div "
                     "style=\"height:500000px;background:linear-gradient("
                     "#004,#cfe8ff)\"></div><h1>END OF THE DRAWING</h1></body></html>\n"));
    addCase(bag, "text-200-kilobytes", daysAgo(49, 9, 0), "The harbour log, typed up",
            textPart(longText(200 * 1024), {.encoding = PartEncoding::EightBit}));
    addCase(bag, "one-word", daysAgo(49, 10, 0), "The verdict", textPart("Granted.\n"));
    addCase(
        bag, "html-without-images", daysAgo(51, 9, 0), "Opening hours of the reading room",
        htmlPart(
            "<html><body><p>The reading room is open on <b>Tuesdays</b> and <b>Thursdays</b>.</p></body></html>\n"));
    addCase(
        bag, "upper-case-image", daysAgo(51, 10, 0), "OUR NEW SIGN",
        htmlPart("<HTML><BODY><P>HERE IS OUR NEW SIGN:</P><IMG SRC=\"HTTPS://IMAGES.MERROW-ARCHIVE.EXAMPLE/SIGN.PNG\" "
                 "WIDTH=\"300\" HEIGHT=\"80\" ALT=\"SIGN\"><P>PLEASE LIKE IT.</P></BODY></HTML>\n"));
}
