#include "demo/Conversation.h"
#include "demo/Notice.h"
#include "demo/ServicePage.h"
#include "demo/content/DemoThemes.h"
#include "demo/files/SampleFiles.h"

// What Dana wrote without an answer, has not finished, or threw away.

namespace {
const DemoPerson &dana = People::dana;

void addOwn(Mailbag &bag, const std::string &folder, const std::string &flags, When when,
            const std::vector<DemoPerson> &to, const std::string &subject, const DemoPart &body) {
    bag.add(folder, flags, when,
            MessageBuilder()
                .from(dana)
                .to(to)
                .subject(subject)
                .date(bag.at(when), dana.utcOffset)
                .messageID("<own-" + std::to_string(when.days * 1440 + when.minutes) + "@corvanite.example>")
                .body(body)
                .build());
}

void addDrafts(Mailbag &bag) {
    addOwn(bag, DemoFolder::drafts, "DS", hoursAgo(2, 15), {People::quentin}, "Eelgrass survey: map and table",
           plainAndHTML(
               "Dear Quentin,\n\nas promised, the map and the table. The beds on the east wall have\n",
               "<p>Dear Quentin,</p><p>as promised, the map and the table. The beds on the east wall have</p>\n"));
    addOwn(bag, DemoFolder::drafts, "DS", daysAgo(2, 21, 10), {}, "Library talk: notes to myself",
           textPart("1. The float goes round first\n2. Why twice a day?\n3. The gull\n4. Tea\n"));
}

void addSent(Mailbag &bag) {
    addOwn(bag, DemoFolder::sent, "S", daysAgo(3, 15, 40), {People::sunniva}, "Travel request: coastal data days",
           multipart("mixed", {textPart("Two nights, one train, no taxi.\n\nDana\n"),
                               attachmentPart({"travel.pdf", "application/pdf",
                                               SampleFiles::pdf("Travel request", {"Train, two nights."})})}));
    addOwn(bag, DemoFolder::sent, "S", daysAgo(9, 8, 3),
           {People::ilias, People::marta, People::tobias, People::priya, People::sunniva, People::henk},
           "Friday: half a day off",
           textPart("Everybody,\n\nthe surge is over, the pumps held, the feed never stopped. Please take "
                    "Friday\nafternoon off and do not read this mailbox.\n\nDana\n"));
    addOwn(bag, DemoFolder::sent, "S", daysAgo(22, 13, 10), {{"Captain Bluewhistle", "captain@bluewhistle.example"}},
           "Tide tables for next year", textPart("As promised.\n\nDana\n"));
    addOwn(bag, DemoFolder::sent, "S", daysAgo(30, 19, 0), {People::jonas}, "Plums",
           textPart("They are called Hauszwetschgen and we need four kilos.\n"));
    addOwn(bag, DemoFolder::sent, "S", daysAgo(61, 9, 9), {People::yusra}, "Levels of the spring tide, as a file",
           multipart("mixed", {textPart("Here they are.\n\nDana\n"),
                               attachmentPart({"levels.csv", "text/csv", SampleFiles::tideTableCSV()})}));
}

void addTrash(Mailbag &bag) {
    const DemoPerson shop{"Sock Republic", "hi@sockrepublic.example", 60};
    const std::vector<std::pair<std::string, std::string>> offers = {
        {"Left sock, right sock, 20% off both", "Every pair has a story. Ours have two."},
        {"Your basket misses you", "One pair of anchors in navy, size 39, is still waiting."},
        {"Do you like wool?", "Answer three questions and win a darning mushroom."},
        {"We have changed our terms", "Socks may now be returned one at a time."}};
    int day = 2;
    for (const auto &[subject, text] : offers)
        addNotice(bag,
                  {shop, daysAgo(day += 3, 12, 0), subject,
                   plainAndHTML(text + "\n", ServicePage{shop.name, "#d23c77", subject, "<p>" + text + "</p>"}.html()),
                   DemoFolder::trash});
    addConversation(bag, {"Parking in the courtyard",
                          {People::tobias, dana, People::sunniva},
                          {{People::tobias, daysAgo(19, 8, 0),
                            "Whoever owns the grey van: it is in front of the bicycles again.\n"},
                           {dana, daysAgo(19, 8, 4), "It is Henk's, he is asleep in it. I'll knock.\n"},
                           {People::sunniva, daysAgo(19, 8, 30), "Let him sleep. The bicycles can wait.\n"}},
                          DemoFolder::trash});
}
} // namespace

void addOwnMail(Mailbag &bag) {
    addDrafts(bag);
    addSent(bag);
    addTrash(bag);
}
