#include "demo/content/NewsletterHTML.h"
#include "demo/content/Newsletters.h"

// A digest for people who like tables: dark header, typewriter letters, numbered cards.

namespace {
using H = NewsletterHTML;

constexpr const char *style = R"(@media screen and (prefers-color-scheme:dark) {
  .ground { background: #0b0f14 !important; }
  .schedule { color: #d5e3ee !important; background: transparent !important; }
  .card { background: #151c25 !important; color: #d5e3ee !important; border-color: #2a3645 !important; }
}
@media (prefers-color-scheme: light) {
  .card { border-color: #dde5ec !important; }
}
)";
constexpr const char *mono = "font-family:'Menlo','DejaVu Sans Mono',Consolas,monospace;";

std::string card(const NewsletterItem &item, size_t number) {
    return H::row(
        std::string("padding:20px 28px;background:#ffffff;color:#22313f;border:1px solid #dde5ec;border-left:5px "
                    "solid #0f9d8a;") +
            mono,
        "<table role=\"presentation\" width=\"100%\" cellpadding=\"0\" cellspacing=\"0\"><tr><td width=\"52\" "
        "valign=\"top\" style=\"font-size:26px;color:#0f9d8a;font-weight:bold\">" +
            std::to_string(number) + "</td><td><div style=\"font-size:16px;font-weight:bold\">" + item.title +
            "</div><div style=\"font-size:14px;line-height:1.65;margin-top:6px\">" + item.text +
            "</div><div style=\"margin-top:10px;font-size:12px\"><span style=\"background:#e2f5f1;color:#0b6b5e;"
            "padding:3px 8px;border-radius:3px\">" +
            item.label + "</span></div></td></tr></table>",
        "card");
}

std::string figures() {
    const auto figure = [](const char *value, const char *name) {
        return std::string("<div style=\"text-align:center;color:#e9fffb;") + mono +
               "\"><div style=\"font-size:30px;"
               "font-weight:bold\">" +
               value + "</div><div style=\"font-size:12px;color:#8fd6c9\">" + name + "</div></div>";
    };
    return H::columns("background:#10302f;padding:16px", figure("1,204", "stations online"),
                      figure("38 M", "readings this week"));
}

std::string page(const NewsletterIssue &issue) {
    std::string rows =
        H::row(
            std::string("padding:30px 28px;background:#0b1f1e;color:#e9fffb;") + mono,
            "<div style=\"font-size:13px;color:#4fe0c7\">$ opentides digest --weekly</div><div style=\"font-size:27px;"
            "line-height:1.3;font-weight:bold;margin-top:12px\">" +
                issue.headline + "</div><div style=\"font-size:14px;line-height:1.6;margin-top:10px;color:#b9e6de\">" +
                issue.lead + "</div>") +
        figures();
    size_t number = 0;
    for (const NewsletterItem &item : issue.items)
        rows += H::row("height:12px;font-size:0;line-height:0", "&nbsp;") + card(item, ++number);
    rows += H::row("height:12px;font-size:0;line-height:0", "&nbsp;") +
            H::row("padding:20px 28px;background:#ffffff;border:1px solid #dde5ec",
                   H::schedule(mono, "#22313f", "#eef6f5", "Highest water of the week",
                               {{"4.41 m", "Merrow, outer mole", "+0.12"},
                                {"4.18 m", "Sankt Elmen, pilot station", "+0.08"},
                                {"3.96 m", "Port Askel, fish quay", "+0.21"},
                                {"3.90 m", "Tarn, ferry landing", "-0.03"},
                                {"3.62 m", "Cabo Verano, lighthouse", "+0.02"},
                                {"3.11 m", "Upper Merrow, lock", "+0.40"},
                                {"2.87 m", "Porto Liso, dry dock", "-0.06"},
                                {"1.02 m", "Hochwald, which is a lake", "+0.00"}}),
                   "card");
    rows += H::row("padding:22px 0",
                   H::button("Browse the catalogue →", "https://opentides.example/catalogue",
                             std::string("padding:12px 22px;background:#0f9d8a;color:#ffffff;font-size:14px;") + mono));
    return H::page(style, issue.lead, "#eef3f6",
                   rows + H::footer(std::string("padding:14px 0;font-size:12px;color:#71808e;") + mono, "Open Tides",
                                    "opentides.example"));
}
} // namespace

Newsletter openDataDigest() {
    return {{"Open Tides Digest", "digest@opentides.example", 120},
            page,
            {{hoursAgo(7, 45),
              "Digest 112: fourteen days of predictions, and a gull",
              "Fourteen days ahead",
              "The Merrow network doubles its horizon this week. Plus: what to do when your logger is a nest.",
              {{"Merrow predictions now reach two weeks",
                "The API answers with 14 days of predicted levels. Clients that "
                "ask for seven get seven, nothing breaks.",
                "release"},
               {"Datum shift on the eastern coast",
                "Eleven stations were re-levelled. The offsets are between 3 and 21 mm "
                "and are listed in the station notes.",
                "data quality"},
               {"Field notes: conduit beats glue",
                "A gull unplugged a gauge twice. Steel conduit and two clamps have "
                "held for a week. The gull is looking for a new hobby.",
                "hardware"},
               {"New reader: a kite school",
                "They colour the beach map by water depth, refreshed each ten minutes. It is "
                "beautiful and forty lines long.",
                "community"}},
              DemoFolder::inbox,
              "S"},
             {daysAgo(7, 5, 50),
              "Digest 111: compression, and a very low water",
              "Smaller answers, lower water",
              "One endpoint at a time we learn to send less.",
              {{"Compressed answers for everybody",
                "If your client sends the right header, it gets a fifth of the bytes.", "release"},
               {"Lowest astronomical tide in six years", "The 12th, shortly after nine. Wear boots.", "events"},
               {"A spreadsheet that rounds", "Decimetres are a fine unit for furniture.", "data quality"}}},
             {daysAgo(14, 5, 50),
              "Digest 110: how to read a flag",
              "Every reading has a flag",
              "Zero is good, one is a forecast, two is a guess, three is a bird.",
              {{"Quality flags explained", "A page, a picture and a table for those who prefer tables.", "docs"},
               {"Two new gauges in the south", "Both at lighthouses, both reached only at low water.", "stations"}}},
             {daysAgo(28, 5, 50),
              "Digest 108: surge!",
              "The night of the surge",
              "1.04 m above the tables, 212 stations, one graph.",
              {{"What the network saw",
                "The crest took five hours from the north cape to Merrow and lost 11 cm on the way.", "events"},
               {"What the network missed",
                "Three gauges stopped at the worst moment. We know why and have ordered the seals.", "post-mortem"}}}}};
}
