#include "demo/MailText.h"
#include "demo/Notice.h"
#include "demo/ServicePage.h"
#include "demo/content/DemoThemes.h"
#include "demo/files/SampleFiles.h"

namespace {
struct Purchase {
    DemoPerson shop;
    std::string color, number;
    When when;
    /// Names and prices in cents.
    std::vector<std::pair<std::string, int>> lines;
    std::string folder = DemoFolder::receipts;
    bool withPDF = false;
    std::string flags = "S";
};

std::string money(int cents) {
    const int rest = cents % 100;
    return std::to_string(cents / 100) + (rest < 10 ? ".0" : ".") + std::to_string(rest) + " EUR";
}

std::string tableRow(const std::string &name, const std::string &amount, const std::string &style) {
    const std::string cell = "<td style=\"padding:10px 0;" + style + "\"";
    return "<tr>" + cell + ">" + MailText::escapedHTML(name) + "</td>" + cell + " align=\"right\">" + amount +
           "</td></tr>\n";
}

int total(const Purchase &purchase) {
    int sum = 0;
    for (const auto &[name, cents] : purchase.lines)
        sum += cents;
    return sum;
}

std::string receiptTable(const Purchase &purchase) {
    std::string rows;
    for (const auto &[name, cents] : purchase.lines)
        rows += tableRow(name, money(cents), "border-bottom:1px solid #dfe4e9");
    return "<p>Thank you for your order, Dana. Here is what you paid.</p>\n<table width=\"100%\" cellpadding=\"0\" "
           "cellspacing=\"0\" style=\"font-size:15px\">\n" +
           rows + tableRow("Total, including 19% tax", money(total(purchase)), "font-weight:bold;font-size:17px") +
           "</table>\n<p>Paid by card ending in 4418.</p>";
}

std::string receiptText(const Purchase &purchase) {
    std::string out = "Receipt " + purchase.number + "\n\n";
    for (const auto &[name, cents] : purchase.lines)
        out += name + ": " + money(cents) + "\n";
    return out + "\nTotal: " + money(total(purchase)) + "\nPaid by card ending in 4418.\n";
}

std::vector<std::string> receiptLines(const Purchase &purchase) {
    std::vector<std::string> out = {"Invoice " + purchase.number, "To: Dana Okafor, Cable Street 12, Merrow", ""};
    for (const auto &[name, cents] : purchase.lines)
        out.push_back(name + "   " + money(cents));
    out.push_back("Total   " + money(total(purchase)));
    return out;
}

DemoPart receiptBody(const Purchase &purchase) {
    const ServicePage page{purchase.shop.name, purchase.color, "Receipt " + purchase.number, receiptTable(purchase),
                           "Keep this message for your records. Returns within 30 days."};
    const DemoPart written = plainAndHTML(receiptText(purchase), page.html());
    if (!purchase.withPDF)
        return written;
    const std::string pdf = SampleFiles::pdf(purchase.shop.name, receiptLines(purchase));
    return multipart("mixed",
                     {written, attachmentPart({"invoice-" + purchase.number + ".pdf", "application/pdf", pdf})});
}

std::vector<Purchase> purchases() {
    const DemoPerson chandler{"Merrow Chandlery", "orders@merrowchandlery.example", 0};
    const DemoPerson books{"Paper Lantern Books", "shop@paperlantern.example", 60};
    const DemoPerson ferry{"Ferryline Merrow", "tickets@ferryline.example", 0};
    const DemoPerson hosting{"Cloudberry Hosting", "billing@cloudberry-hosting.example", 120};
    const DemoPerson grocer{"Green Crate", "hello@greencrate.example", 60};
    return {
        {ferry,
         "#0b6e99",
         "F-20817",
         hoursAgo(10, 12),
         {{"Return, 2 adults", 3840}, {"Bicycle", 600}},
         DemoFolder::inbox},
        {books,
         "#7a3b69",
         "PL-5512",
         daysAgo(3, 19, 12),
         {{"The Shape of Water Levels, hardback", 3490}, {"Knots for the Impatient", 1495}, {"Shipping", 390}},
         DemoFolder::inbox,
         true},
        {grocer,
         "#4b8b3b",
         "8841-22",
         daysAgo(4, 17, 5),
         {{"Vegetable crate, medium", 2250}, {"Eggs, ten", 420}, {"Oat milk, six", 1170}},
         DemoFolder::inbox},
        {hosting,
         "#8a4fff",
         "2231-11",
         daysAgo(13, 3, 0),
         {{"Server, 4 cores, one month", 2900}, {"Storage 200 GB", 800}},
         DemoFolder::inbox,
         true},
        {chandler,
         "#1c3d5a",
         "MC-1189",
         daysAgo(16, 11, 34),
         {{"Rope 12 mm, 20 m", 1840}, {"Shackle, galvanised, 4 pieces", 2360}},
         DemoFolder::inbox},
        {hosting,
         "#8a4fff",
         "2231-10",
         daysAgo(43, 3, 0),
         {{"Server, 4 cores, one month", 2900}, {"Storage 200 GB", 800}},
         DemoFolder::receipts,
         true},
        {hosting,
         "#8a4fff",
         "2231-09",
         daysAgo(74, 3, 0),
         {{"Server, 4 cores, one month", 2900}, {"Storage 200 GB", 800}},
         DemoFolder::receipts,
         true},
        {grocer, "#4b8b3b", "8790-22", daysAgo(11, 17, 5), {{"Vegetable crate, medium", 2250}, {"Apples, 3 kg", 780}}},
        {grocer, "#4b8b3b", "8733-22", daysAgo(18, 17, 5), {{"Vegetable crate, medium", 2250}}},
        {grocer, "#4b8b3b", "8689-22", daysAgo(25, 17, 5), {{"Vegetable crate, small", 1690}, {"Honey", 890}}},
        {books, "#7a3b69", "PL-4920", daysAgo(52, 20, 44), {{"Birds of the Foreshore", 2800}}},
        {ferry, "#0b6e99", "F-19944", daysAgo(44, 6, 58), {{"Single, 1 adult", 960}}},
        {chandler,
         "#1c3d5a",
         "MC-1040",
         daysAgo(97, 10, 20),
         {{"Oilskin jacket, yellow", 14900}},
         DemoFolder::receipts,
         true},
        {books, "#7a3b69", "PL-4410", daysAgo(133, 12, 1), {{"Tide tables of the northern coast", 1250}}},
        {ferry, "#0b6e99", "F-16002", daysAgo(390, 7, 45), {{"Season ticket", 28800}}, DemoFolder::receipts, true},
    };
}
} // namespace

void addReceipts(Mailbag &bag) {
    for (const Purchase &purchase : purchases())
        addNotice(bag, {purchase.shop, purchase.when, "Your receipt " + purchase.number + " from " + purchase.shop.name,
                        receiptBody(purchase), purchase.folder, purchase.flags});
}
