#include "demo/content/NewsletterHTML.h"
#include "demo/content/Newsletters.h"

// A bakery: warm colours, round corners, goods in two columns with prices.

namespace {
using H = NewsletterHTML;

constexpr const char *style =
    R"(@font-face { font-family: 'Loaf Round'; src: url('https://static.lanternloaf.example/fonts/round.woff2') format('woff2'); }
@MEDIA ONLY SCREEN AND (PREFERS-COLOR-SCHEME: DARK) {
  .ground { background: #241812 !important; }
  .card { background: #35241b !important; color: #ffe9d6 !important; }
  .card td, .card div { color: #ffe9d6 !important; }
  .sign { color: #f0b070 !important; }
  .schedule { color: #ffe9d6 !important; background: transparent !important; }
  .footer { color: #c8a58c !important; }
}
)";
constexpr const char *rounded = "font-family:'Loaf Round','Trebuchet MS',Verdana,'DejaVu Sans',sans-serif;";

std::string goods(const NewsletterItem &item, const std::string &color) {
    return "<table role=\"presentation\" width=\"100%\" cellpadding=\"0\" cellspacing=\"0\" class=\"card\" "
           "style=\"background:#ffffff;border-radius:18px\"><tr><td style=\"height:86px;background:" +
           color +
           ";border-radius:18px 18px 0 0;font-size:40px;text-align:center;color:#fff\" "
           "align=\"center\">&#10047;</td></tr>"
           "<tr><td style=\"padding:16px 18px 20px;color:#4a2c1d;" +
           std::string(rounded) + "\"><div style=\"font-size:18px;font-weight:bold\">" + item.title +
           "</div><div style=\"font-size:14px;line-height:1.5;margin:6px 0 12px\">" + item.text +
           "</div><div style=\"font-size:20px;font-weight:bold;color:#c4501f\">" + item.label +
           "</div></td></tr></table>";
}

std::string shelf(const std::vector<NewsletterItem> &items) {
    const std::vector<std::string> colors = {"#e8a24a", "#c4501f", "#8a9a5b", "#b5838d", "#d9803f", "#6d597a"};
    std::string out;
    for (size_t i = 0; i + 1 < items.size(); i += 2)
        out += H::columns("padding:8px", goods(items[i], colors[i % colors.size()]),
                          goods(items[i + 1], colors[(i + 1) % colors.size()]));
    return out;
}

std::string page(const NewsletterIssue &issue) {
    const std::string rows =
        H::row(std::string("padding:18px;text-align:center;font-size:22px;font-weight:bold;color:#8a3d14;") + rounded,
               "Lantern &amp; Loaf", "sign") +
        H::row(
            std::string("padding:48px 40px;background:#c4501f;background-image:linear-gradient(135deg,#e8a24a,#c4501f);"
                        "border-radius:24px;text-align:center;color:#fff;") +
                rounded,
            "<div style=\"font-size:42px;line-height:1.1;font-weight:bold\">" + issue.headline +
                "</div><div style=\"font-size:17px;line-height:1.5;margin:16px 0 26px\">" + issue.lead +
                "</div><div align=\"center\">" +
                H::button("Order for the weekend", "https://lanternloaf.example/order",
                          "padding:14px "
                          "34px;background:#fff;color:#c4501f;border-radius:30px;font-weight:bold;font-size:17px") +
                "</div>") +
        H::row("height:12px;font-size:0;line-height:0", "&nbsp;") + shelf(issue.items) +
        H::row("padding:20px 24px",
               H::schedule(rounded, "#8a3d14", "#fbe2c8", "Out of the oven",
                           {{"Tuesday", "Rye, house white, oat crackers", "from 6:00"},
                            {"Wednesday", "Rye, walnut ring, cheese sticks for the road", "from 6:00"},
                            {"Thursday", "House white, seeded batch, saffron buns", "from 6:00"},
                            {"Friday", "Everything, and twice as much of it", "from 5:30"},
                            {"Saturday", "Everything, and the pretzels that you asked for", "from 5:30"}})) +
        H::row(std::string("padding:24px;text-align:center;font-size:15px;line-height:1.6;color:#8a3d14;") + rounded,
               H::image("https://static.lanternloaf.example/oven.png", 560, 160, "Our oven at four in the morning") +
                   "Open Tuesday to Saturday from six until the bread is gone.",
               "sign");
    return H::page(style, issue.lead, "#fdf1e3",
                   rows +
                       H::footer(std::string("padding:18px;text-align:center;font-size:12px;color:#a07a63;") + rounded,
                                 "Lantern &amp; Loaf", "lanternloaf.example"));
}
} // namespace

Newsletter bakeryNews() {
    return {{"Lantern & Loaf", "hello@lanternloaf.example", 60},
            page,
            {{hoursAgo(4, 2),
              "Stollen is back 🍞 (and it has been resting)",
              "Stollen is back",
              "Baked in October, wrapped in linen, asleep in the cellar ever since. From Saturday it is yours.",
              {{"Stollen", "Rum raisins, almonds, a little cardamom. Keeps until Candlemas.", "18.50"},
               {"Rye from the lock", "Three days of sourdough, one hour in the hottest corner.", "5.20"},
               {"Saffron buns", "Curled like a cat. Eat on the way home.", "2.40"},
               {"Pear &amp; ginger tart", "Pears from Upper Merrow, picked by hand.", "4.90"}},
              DemoFolder::inbox,
              ""},
             {daysAgo(7, 5, 30),
              "Saturday: the first clementine loaf",
              "A loaf with peel",
              "We candied eleven crates of clementines. Our hands will smell of it until spring.",
              {{"Clementine loaf", "Soft, golden, best on the second day.", "6.80"},
               {"Walnut ring", "For cheese. For breakfast. For both.", "5.60"},
               {"Oat crackers", "Ten in a bag, gone by the car park.", "3.90"},
               {"Apple turnovers", "Still warm if you come before eight.", "3.10"}}},
             {daysAgo(21, 5, 30),
              "You left something in the oven: 10% off your next order",
              "Come back for crumbs",
              "It has been three weeks. The rye has been asking after you.",
              {{"House rye", "The one you always take.", "5.20"},
               {"Seeded batch", "Six small ones, freezes well.", "4.40"}}},
             {daysAgo(35, 5, 30),
              "Harvest week at Lantern & Loaf",
              "New flour!",
              "The first sacks of this year's wheat have come down from the mill.",
              {{"Harvest wheatsheaf", "For looking at, then for eating.", "14.00"},
               {"Miller's white", "Simple, tall, honest.", "4.10"}}}}};
}
