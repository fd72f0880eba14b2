#include "demo/DemoAccounts.h"

#include "demo/People.h"

namespace {

constexpr const char *danaSignature = "<b>Dana Okafor</b><br>Corvanite – harbour engineering and open tide data<br>"
                                      "<a href=\"tel:+495550142018\">+49 555 0142 018</a>";

NewAccount dana() {
    return {
        "demo",
        "corvanite",
        People::dana.address,
        People::dana.name,
        true,
        {{"ai_provider", "builtin"}, {"ai_model", "word-weights"}, {"has_ai_key", true}, {"signature", danaSignature}},
        {"d.okafor@corvanite.example", "tides@corvanite.example"}};
}

NewAccount ilias() {
    return {"ilias",
            "corvanite",
            People::ilias.address,
            People::ilias.name,
            false,
            {{"signature", People::ilias.signature}}};
}

} // namespace

const std::vector<NewAccount> &demoAccounts() {
    static const std::vector<NewAccount> accounts{dana(), ilias()};
    return accounts;
}

void addDemoTemplates(TemplateStore &templates, const std::string &accountID) {
    templates.add(accountID, "Thank you", "Thank you",
                  "<p>Thank you for your message. I will come back to you by the end of the week.</p>");
    templates.add(accountID, "Site visit", "Site visit at the harbour",
                  "<p>Hello,</p><p>we would like to visit the site. Would one of these days suit you?</p>"
                  "<ul><li>Tuesday, 10:00</li><li>Thursday, 14:00</li></ul><p>Please bring a helmet and boots.</p>");
    templates.add(accountID, "Tide data request", "",
                  "Hello,\nour tide data is open and free to use; please name \"Corvanite open tides\" as the source.\n"
                  "The newest files are on our site.");
    templates.add(accountID, "Out for the day", "Out of the office today", "");
}

void addDemoContacts(ContactStore &contacts, const std::string &accountID) {
    const std::vector<std::pair<DemoPerson, int>> known{
        {People::ilias, 41},  {People::marta, 33},   {People::rosalind, 18}, {People::priya, 15},
        {People::tobias, 12}, {People::kelechi, 11}, {People::mum, 9},       {People::anselm, 6},
        {People::yusra, 5},   {People::sunniva, 4},  {People::olive, 2},     {People::quentin, 1},
    };
    for (const auto &[person, messages] : known)
        contacts.noteUse(accountID, person.address, person.name, messages);
    contacts.noteUse(accountID, "invoices@paperclip-supplies.example", "", 3);
    contacts.add(accountID, People::bea.address, People::bea.name);
}
