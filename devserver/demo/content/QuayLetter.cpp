#include "demo/MailText.h"
#include "demo/content/NewsletterHTML.h"
#include "demo/content/Newsletters.h"

// A weekly of the town: cream paper, navy masthead, serif columns.

namespace {
using H = NewsletterHTML;

constexpr const char *style = R"(@import url('https://fonts.quayletter.example/css?family=Old+Chandler:400,700');
@media (prefers-color-scheme: dark) {
  .ground { background: #12161c !important; }
  .paper { background: #1b222b !important; color: #e6e1d6 !important; border-color: #39424e !important; }
  .paper h2, .paper p, .paper a { color: #e6e1d6 !important; }
  .schedule { color: #e6e1d6 !important; background: transparent !important; }
  .footer { color: #8c96a3 !important; }
}
)";
constexpr const char *serif = "font-family:'Old Chandler',Georgia,'DejaVu Serif',serif;";

std::string article(const NewsletterItem &item) {
    return H::row(
        std::string("padding:22px 44px;background:#fbf7ee;color:#2b2a27;border-top:1px solid #d9cfb8;") + serif,
        "<p style=\"margin:0 0 6px;font-size:12px;letter-spacing:2px;text-transform:uppercase;color:#9a6b2f\">" +
            item.label + "</p>\n<h2 style=\"margin:0 0 8px;font-size:23px;line-height:1.25;color:#1c2f4a\">" +
            item.title + "</h2>\n<p style=\"margin:0;font-size:16px;line-height:1.6\">" + item.text +
            " <a href=\"https://quayletter.example/read\" style=\"color:#9a6b2f\">Read on</a></p>",
        "paper");
}

std::string page(const NewsletterIssue &issue) {
    std::string rows =
        H::row(std::string("padding:30px 44px 26px;background:#1c2f4a;color:#f4ead2;text-align:center;") + serif,
               "<div style=\"font-size:40px;line-height:1;letter-spacing:1px\">The Quay Letter</div>\n"
               "<div style=\"font-size:13px;letter-spacing:3px;margin-top:12px;color:#c9b98e\">MERROW, EVERY "
               "FRIDAY</div>") +
        H::row("background:#fbf7ee",
               H::image("https://img.quayletter.example/cover.jpg", 600, 240, "The quay in the morning")) +
        H::row(std::string("padding:34px 44px 24px;background:#fbf7ee;color:#2b2a27;") + serif,
               "<h2 style=\"margin:0 0 12px;font-size:31px;line-height:1.2;color:#1c2f4a\">" + issue.headline +
                   "</h2>\n<p style=\"margin:0;font-size:18px;line-height:1.6;font-style:italic\">" + issue.lead +
                   "</p>",
               "paper");
    for (const NewsletterItem &item : issue.items)
        rows += article(item);
    rows += H::row("padding:24px 44px;background:#fbf7ee;border-top:1px solid #d9cfb8",
                   H::schedule(serif, "#1c2f4a", "#f0e8d3", "The week on the quay",
                               {{"Monday", "Net mending, open to beginners, old sail loft", "18:00"},
                                {"Tuesday", "Tides and where their numbers come from, library", "19:00"},
                                {"Wednesday", "Market under the arcade, with the cheese people", "08:00"},
                                {"Thursday", "Quayside Singers rehearse, bring a scarf", "19:30"},
                                {"Friday", "Late opening at the lighthouse, 112 steps", "20:00"},
                                {"Saturday", "Gig racing: Merrow against everybody", "11:00"},
                                {"Sunday", "Blessing of the small boats, then soup", "10:30"}}),
                   "paper");
    rows += H::row("padding:26px 44px 34px;background:#fbf7ee;border-top:1px solid #d9cfb8",
                   H::button("Write to the editor", "mailto:editor@quayletter.example",
                             std::string("padding:12px 26px;background:#1c2f4a;color:#f4ead2;font-size:16px;") + serif),
                   "paper");
    return H::page(style, issue.lead, "#e9e2d0",
                   rows +
                       H::footer(std::string("padding:22px 44px;font-size:12px;line-height:1.6;color:#7b7462;") + serif,
                                 "The Quay Letter", "quayletter.example"));
}
} // namespace

Newsletter quayLetter() {
    return {
        {"The Quay Letter", "editor@quayletter.example", 0},
        page,
        {{daysAgo(1, 6, 0),
          "The boat that came back",
          "The boat that came back",
          "Forty-one years after she was sold north, the pilot cutter Meredith has tied up at her old berth. We "
          "were there with a thermos.",
          {{"She still knows the way in",
            "Her new owners are two teachers who learnt to sail on the lake. They "
            "came through the gap at dusk, under sail, and half the town pretended to be out walking the dog.",
            "Harbour"},
           {"What the tide board says about us",
            "The numbers at the slipway are read by fishermen, swimmers, a "
            "wedding photographer and one heron. Dana Okafor explains at the library where they come from.",
            "Town"},
           {"Soup, and where to find it",
            "Three kitchens, three ladles, no reservations. Our winter list begins "
            "with the smoked haddock on Cable Street and ends, as it must, with leeks.",
            "Table"},
           {"Letters", "A reader in Upper Merrow asks who moved the bench. The bench has been asked.", "Post"}},
          DemoFolder::inbox,
          "S"},
         {daysAgo(8, 6, 0),
          "Lanterns on the mole, and a vote",
          "Lanterns on the mole",
          "On Saturday the children carry their lanterns out to the lighthouse. Bring gloves, leave the drone at home.",
          {{"The vote on the slipway",
            "Seven to five for stone, against concrete. The council has listened to the "
            "rowing club, and the rowing club has promised to be quiet about it.",
            "Town"},
           {"A guide to winter birds",
            "Turnstones on the steps, eiders behind the ferry, and one confused spoonbill "
            "that ought to be a thousand miles south.",
            "Outdoors"},
           {"The sound of the old horn",
            "For one minute at noon the foghorn will be blown by hand. The dog owners "
            "among you have been warned.",
            "Harbour"}}},
         {daysAgo(15, 6, 0),
          "Apples, ropes and a new ferry clock",
          "The clock is right",
          "For the first time since the spring the clock at the ferry agrees with the ferry.",
          {{"How to store an apple",
            "Not touching its neighbour, not in the sun, and not in the boot of the car. "
            "Three growers argue about straw.",
            "Table"},
           {"Rope walk to open again",
            "The long shed behind the chandler's gets its roof back. A demonstration model "
            "is being built with real rope.",
            "Town"},
           {"Lost and found", "One red folder, one glove, one accordion.", "Post"}}},
         {daysAgo(22, 6, 0),
          "After the surge",
          "A dry lock",
          "The water came within a hand of the old gates, and the pumps did what pumps are for.",
          {{"A night at the lock",
            "Somebody stayed until the water turned, and slept in his van. The town owes him breakfast.", "Harbour"},
           {"Sandbags, please return", "Four hundred went out and two hundred and ten have come home.", "Town"}}}}};
}
