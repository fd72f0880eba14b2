#include "net/APIError.h"
#include "rules/ContactService.h"
#include "rules/TemplateService.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class DirectoryServices : public CoreTest {
protected:
    DirectoryServices() { server.makeCurrent(); }

    FakeServer server;
};

struct Command {
    const char *name;
    QByteArray method, target, body;
    std::function<QCoro::Task<>()> run;
};

const Command commands[] = {
    {"AddContact", "POST", "/api/contacts/add", R"({"email":"a@b","name":""})",
     [] { return ContactService::add(u"a@b"_s, QString()); }},
    {"UpdateContact", "POST", "/api/contacts/update", R"({"contact_id":"c1","email":"a@b","name":"Zoë"})",
     [] { return ContactService::update(u"c1"_s, u"a@b"_s, u"Zoë"_s); }},
    {"DeleteContact", "DELETE", "/api/contacts/c1", "", [] { return ContactService::remove(u"c1"_s); }},
    {"CreateTemplate", "POST", "/api/templates/create", R"({"body":"<p>","name":"N","subject":""})",
     [] { return TemplateService::create(u"N"_s, u""_s, u"<p>"_s); }},
    {"DeleteTemplate", "POST", "/api/templates/delete/t1", "", [] { return TemplateService::remove(u"t1"_s); }},
};

class DirectoryCommands : public DirectoryServices, public testing::WithParamInterface<Command> {};

} // namespace

TEST_F(DirectoryServices, ReadTheirLists) {
    server.expect("GET", "/api/contacts")
        .json(R"({"contacts": [{"_id": "c1", "email": "a@b", "name": "Ada", "frequency": 3, "source": "sent"},
                               {"_id": "c2", "email": "c@d", "name": null}]})");
    EXPECT_THAT(await(ContactService::list()),
                ElementsAre(Contact{u"c1"_s, u"a@b"_s, u"Ada"_s, 3, u"sent"_s}, Contact{u"c2"_s, u"c@d"_s}));
    server.expect("GET", "/api/templates")
        .json(R"({"templates": [{"_id": "t1", "name": "N", "subject": "S", "body": "B"}, {"_id": "t2", "name": ""}]})");
    EXPECT_THAT(await(TemplateService::list()),
                ElementsAre(EmailTemplate{u"t1"_s, u"N"_s, u"S"_s, u"B"_s}, EmailTemplate{u"t2"_s, u""_s}));
}

TEST_F(DirectoryServices, FailOverAListWithoutWhatIsRequired) {
    server.expect("GET", "/api/contacts").json(R"({"contacts": [{"_id": "c1"}]})");
    EXPECT_EQ(failureOf(ContactService::list()), u"contacts[0].email: expected a text"_s);
    server.expect("GET", "/api/templates").json(R"({"templates": [{"_id": "t1"}]})");
    EXPECT_EQ(failureOf(TemplateService::list()), u"templates[0].name: expected a text"_s);
}

TEST_P(DirectoryCommands, SendWhatTheServerExpects) {
    const auto &row = GetParam();
    auto &exchange = server.expect(row.method, row.target).json("{}");
    await(row.run());
    EXPECT_EQ(exchange.request().body, row.body);
    server.expect(row.method, row.target).json(R"({"message": "No"})", 500);
    EXPECT_EQ(failureOf(row.run()), u"No"_s);
}

INSTANTIATE_TEST_SUITE_P(, DirectoryCommands, testing::ValuesIn(commands), rowName);

TEST(ContactsMatching, LooksAtAddressesAndNamesInAnyCase) {
    const Contact ada{u"1"_s, u"Ada@Example.test"_s, std::nullopt};
    const Contact bob{u"2"_s, u"bob@example.test"_s, u"Bob ÄRGER"_s};
    const std::vector both{ada, bob};
    EXPECT_EQ(contactsMatching(both, u"EXAMPLE"_s), both);
    EXPECT_EQ(contactsMatching(both, u"ärger"_s), std::vector{bob});
    EXPECT_EQ(contactsMatching(both, u"ada@"_s), std::vector{ada});
    EXPECT_EQ(contactsMatching(both, u"ada "_s), std::vector<Contact>());
    EXPECT_EQ(contactsMatching(both, QString()), both);
}
