#include "demo/Notice.h"
#include "demo/content/DemoThemes.h"
#include "demo/files/SampleFiles.h"
#include "demo/files/SamplePictures.h"
#include "mime/HeaderEncoding.h"
#include "mime/TransferEncoding.h"

namespace {
DemoPart letter(const std::string &text, std::vector<DemoPart> files) {
    files.insert(files.begin(), textPart(text));
    return multipart("mixed", files);
}

/// Base64 bytes under header fields that no tidy program would write.
DemoPart oddFile(const std::string &type, const std::string &disposition, const std::string &bytes) {
    return {{{"Content-Type", type}, {"Content-Disposition", disposition}, {"Content-Transfer-Encoding", "base64"}},
            TransferEncoding::base64(bytes)};
}

DemoPart withPictures() {
    const std::string html =
        "<html><body style=\"font-family:sans-serif\"><p>Dana, look at the light on Saturday!</p>\n"
        "<p><img src=\"cid:sunset@petrak.example\" width=\"560\" height=\"300\" alt=\"Sunset over the mole\"></p>\n"
        "<p>And the lighthouse, an hour before the cake:</p>\n"
        "<p><img src=\"cid:lighthouse@petrak.example\" width=\"420\" height=\"320\" "
        "alt=\"Lighthouse\"></p><p>Jonas</p></body></html>\n";
    const DemoPart related = multipart(
        "related",
        {htmlPart(html), inlinePart({"sunset.png", "image/png", SamplePictures::sunsetPNG()}, "sunset@petrak.example"),
         inlinePart({"lighthouse.png", "image/png", SamplePictures::lighthousePNG()}, "lighthouse@petrak.example")},
        "; type=\"text/html\"");
    return multipart("alternative", {textPart("Dana, look at the light on Saturday!\n\nJonas\n"), related});
}

DemoPart tideReport() {
    const std::string html =
        "<html><body><h2 style=\"font-family:sans-serif\">Water levels at Merrow, yesterday</h2>\n<img "
        "src=\"cid:chart\" "
        "alt=\"Bars of the hourly levels\">\n<p style=\"font-family:sans-serif\">Highest 4.10 m, lowest 0.71 m. The "
        "table is attached.</p><p><img src=\"cid:logo\" alt=\"Corvanite\"></p></body></html>\n";
    const DemoPart related = multipart(
        "related", {htmlPart(html), inlinePart({"chart.png", "image/png", SamplePictures::tideChartPNG()}, "chart"),
                    inlinePart({"logo.png", "image/png", SamplePictures::logoPNG()}, "logo")});
    return multipart("mixed", {related, attachmentPart({"levels.csv", "text/csv", SampleFiles::tideTableCSV()})});
}

void addPictures(Mailbag &bag) {
    const DemoPart report = tideReport();
    const DemoPerson robot{"Tide Robot", "robot@corvanite.example", 0};
    addNotice(bag,
              {People::jonas, hoursAgo(14, 8), "Photographs from Saturday 🌅", withPictures(), DemoFolder::inbox, "F"});
    for (int week = 5; week <= 26; ++week)
        addNotice(bag,
                  {robot, daysAgo(7 * week, 3, 30), "Tide report: Merrow outer mole", report, DemoFolder::archive});
    for (int day = 1; day <= 5; ++day)
        addNotice(bag, {robot, daysAgo(day, 3, 30), "Tide report: Merrow outer mole", report});
    addNotice(bag, {People::henk, daysAgo(6, 15, 30), "The gull, as requested",
                    letter("Exhibit A. She is not sorry.\n",
                           {attachmentPart({"gull.jpg", "image/jpeg", SamplePictures::harbourJPEG()})}),
                    DemoFolder::harbour});
}

void addDocuments(Mailbag &bag) {
    const std::string pdf =
        SampleFiles::pdf("Berth 4, panels 11 to 14", {"Inspection by boat, low water.", "Panel 12: upper shackle gone.",
                                                      "Panel 13: facing worn through."});
    addNotice(bag, {People::ilias, hoursAgo(23, 40), "Inspection report Berth 4, with photographs",
                    letter("The whole bundle for the insurers.\n",
                           {attachmentPart({"Inspection Berth 4.pdf", "application/pdf", pdf}),
                            attachmentPart({"panel-12.jpg", "image/jpeg", SamplePictures::harbourJPEG()}),
                            attachmentPart({"drawings.zip", "application/zip",
                                            SampleFiles::zip({{"bracket.txt", "plate 14 mm\n"},
                                                              {"berth4/levels.csv", SampleFiles::tideTableCSV()}})})}),
                    DemoFolder::inbox, "F"});
    addNotice(bag, {People::sunniva, daysAgo(7, 9, 5), "Holiday form",
                    letter("Please fill in and send back by Friday, yes, this Friday.\n",
                           {attachmentPart({"Holiday form.docx",
                                            "application/vnd.openxmlformats-officedocument.wordprocessingml.document",
                                            SampleFiles::docx({"Holiday request", "Name:", "From / to:"})}),
                            attachmentPart({"read me.txt", "text/plain", "Blue ink, please.\n"})})});
    addNotice(bag, {People::mum, daysAgo(14, 18, 44), "Your father sings",
                    letter("I recorded him in the kitchen. He does not know.\n",
                           {attachmentPart({"kitchen.wav", "audio/wav", SampleFiles::wav(2)})})});
    addNotice(bag, {People::amara, daysAgo(16, 20, 9), "Flags for the cutter",
                    letter("This one, but bigger.\n",
                           {attachmentPart({"flag.gif", "image/gif", SamplePictures::flagGIF()})})});
    addNotice(bag, {People::tobias, daysAgo(21, 8, 12), "Log of last night",
                    letter("Nothing to see, which is the point.\n",
                           {attachmentPart({"server.log", "application/octet-stream",
                                            std::string("\x00\x01\x02 binary\xff", 11)})})});
}

void addOddNames(Mailbag &bag) {
    const std::string text = "The file that you asked for.\n";
    const DemoPart longName =
        attachmentPart({"Minutes of the joint meeting of the harbour committee, the rowing club, the "
                        "quayside singers and the friends of the old lighthouse, second revised version with the "
                        "corrections of the treasurer (final) (2).txt",
                        "text/plain", text});
    addNotice(bag, {People::quentin, daysAgo(45, 9, 0), "Minutes, second revised version",
                    letter("Attached.\n", {longName})});
    addNotice(bag, {{"Jürgen Großmann", "grossmann@wasserstand-nord.example", 60},
                    daysAgo(46, 10, 0),
                    "Übersicht der Pegel",
                    letter("Anbei.\n",
                           {attachmentPart({"Übersicht Pegelstände – März & April 潮位.csv", "text/csv",
                                            SampleFiles::tideTableCSV()}),
                            oddFile("text/plain; name=\"" + HeaderEncoding::text("Größe.txt") + "\"",
                                    "attachment; filename=\"" + HeaderEncoding::text("Größe.txt") + "\"", text)})});
    addNotice(bag, {{"Scanner, 2nd floor", "scanner@corvanite.example", 60},
                    daysAgo(47, 11, 0),
                    "Scan 0042",
                    letter("", {oddFile("text/plain", "attachment; filename=\"../../etc/C:\\scans\\0042.txt\"", text),
                                oddFile("application/octet-stream", "attachment", text)}),
                    DemoFolder::inbox,
                    "S",
                    {{"X-Demo-Case", "odd-file-names"}}});
}

void addForwarded(Mailbag &bag) {
    const std::string inner = startNotice(bag, {People::rosalind, daysAgo(50, 8, 0), "Key to the pump house",
                                                textPart("It hangs behind the tide table.\n\nRosalind\n")})
                                  .body(textPart("It hangs behind the tide table.\n\nRosalind\n"))
                                  .build();
    addNotice(bag, {People::henk, daysAgo(50, 9, 30), "Fwd: Key to the pump house",
                    letter("As an attachment, so that nobody can say it was not her.\n",
                           {messagePart(inner, "Key to the pump house.eml")})});
}
} // namespace

void addAttachments(Mailbag &bag) {
    addPictures(bag);
    addDocuments(bag);
    addOddNames(bag);
    addForwarded(bag);
}
