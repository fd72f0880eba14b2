#include "demo/content/NewsletterHTML.h"
#include "demo/content/Newsletters.h"

// Night trains: deep blue, a big promise, a timetable with prices and a strip of stars.

namespace {
using H = NewsletterHTML;

constexpr const char *style = R"(@media only screen and (prefers-color-scheme: dark) {
  .ground { background: #100e22 !important; }
  .schedule { color: #efeaff !important; background: transparent !important; }
  .fares { background: #1d1a3a !important; color: #efeaff !important; }
  .fares .line, .fares .note { color: #efeaff !important; }
  .fares td { color: #efeaff !important; border-color: #3b3670 !important; }
}
)";
constexpr const char *sans = "font-family:'Nachtzug','Helvetica Neue',Arial,'Noto Sans',sans-serif;";

std::string fare(const NewsletterItem &item) {
    return "<tr><td style=\"padding:16px 0;border-bottom:1px solid #e3e0f3;" + std::string(sans) +
           "\"><div class=\"line\" style=\"font-size:18px;font-weight:bold;color:#2a2163\">" + item.title +
           "</div><div class=\"note\" style=\"font-size:14px;color:#6a6690;margin-top:3px\">" + item.text +
           "</div></td><td align=\"right\" style=\"padding:16px 0;border-bottom:1px solid #e3e0f3;white-space:nowrap;" +
           sans +
           "\"><div style=\"font-size:12px;color:#6a6690\">from</div><div style=\"font-size:26px;font-weight:bold;"
           "color:#e0457b\">" +
           item.label + "</div></td></tr>\n";
}

std::string page(const NewsletterIssue &issue) {
    std::string fares = "<table role=\"presentation\" width=\"100%\" cellpadding=\"0\" cellspacing=\"0\">\n";
    for (const NewsletterItem &item : issue.items)
        fares += fare(item);
    const std::string rows =
        H::row(std::string(
                   "padding:20px 36px;background:#2a2163;color:#fff;font-size:18px;font-weight:bold;letter-spacing:"
                   "1px;") +
                   sans,
               "&#9790; Mooncarriage <span style=\"font-weight:normal;color:#a9a1e6\">night trains</span>") +
        H::row(std::string("padding:56px 36px 60px;background:#3d2f8f;background-image:linear-gradient(180deg,#2a2163,"
                           "#7b3fa0 70%,#e0457b);color:#fff;") +
                   sans,
               "<div style=\"font-size:14px;letter-spacing:8px;color:#cfc6ff\">&#10022; &#10023; &#10022;</div>"
               "<div style=\"font-size:46px;line-height:1.08;font-weight:bold;margin:14px 0\">" +
                   issue.headline + "</div><div style=\"font-size:18px;line-height:1.5;max-width:420px\">" +
                   issue.lead + "</div>") +
        H::row("padding:18px 36px 8px;background:#ffffff", fares + "</table>", "fares") +
        H::row("padding:18px 36px;background:#ffffff",
               H::schedule(sans, "#2a2163", "#f3f1fb", "On board tonight",
                           {{"19:00", "Supper: barley soup, trout or beetroot, pears", "car 4"},
                            {"21:00", "Reading aloud in the saloon, chapter nine", "car 4"},
                            {"22:30", "Quiet hours begin, slippers on", "all cars"},
                            {"06:00", "Tea comes to your berth, knock twice for coffee", "cars 1 to 3"},
                            {"06:45", "Sunrise on the left until the viaduct", "if clear"},
                            {"07:55", "Arrival, keep your berth until nine", "platform 2"}}),
               "fares") +
        H::row(
            "padding:20px 36px 34px;background:#ffffff",
            H::button("Find a berth", "https://mooncarriage.example/search",
                      std::string("padding:15px 40px;background:#e0457b;color:#fff;border-radius:6px;font-weight:bold;"
                                  "font-size:17px;") +
                          sans) +
                H::image("https://cdn.mooncarriage.example/map.png", 528, 180, "Map of our lines"),
            "fares");
    return H::page(style, issue.lead, "#eceaf7",
                   rows +
                       H::footer(std::string("padding:20px 36px;font-size:12px;line-height:1.6;color:#7d79a3;") + sans,
                                 "Mooncarriage", "mooncarriage.example"));
}
} // namespace

Newsletter railDeals() {
    return {{"Mooncarriage", "tickets@mooncarriage.example", 60},
            page,
            {{daysAgo(2, 15, 0),
              "Wake up by the sea: winter berths from 39",
              "Wake up somewhere else",
              "Fall asleep to rails, open the blind on salt water. Winter berths are on sale until Sunday.",
              {{"Merrow – Sankt Elmen", "Leaves 21:40, arrives 07:55, breakfast by the window", "39 €"},
               {"Merrow – Porto Liso", "Leaves 19:12, two nights, dining car", "89 €"},
               {"Sankt Elmen – Hochwald", "Leaves 22:05, arrives in the snow", "45 €"},
               {"Porto Liso – Cabo Verano", "Along the cliffs, sit on the left", "29 €"}},
              DemoFolder::inbox,
              "S"},
             {daysAgo(30, 15, 0),
              "The new timetable: three more moons",
              "Three more moons",
              "From December three new night lines leave after your supper and arrive before your meeting.",
              {{"Merrow – Hochwald", "Through carriage, no change at midnight", "59 €"},
               {"Merrow – Isle of Tarn", "Train, ferry, train; you may stay in bed", "64 €"}}},
             {daysAgo(58, 15, 0),
              "Your berth for autumn",
              "Leaves, then leave",
              "The forests along the Hochwald line are turning. Berths with a window on the right are going fast.",
              {{"Merrow – Hochwald", "Slow train, good light", "49 €"},
               {"Hochwald – Merrow", "The same leaves from the other side", "49 €"}}}}};
}
