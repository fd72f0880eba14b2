#include "SendServerTest.h"

#include "storage/SQLiteDatabase.h"

namespace {

using nlohmann::json;

class DirectoryTest : public SendServerTest {
protected:
    DirectoryTest() {
        start();
        signIn("ilias");
    }

    json contacts() { return getJSON("api/contacts").at("contacts"); }
    int removeContact(const std::string &id) {
        return m_client->Delete("/api/contacts/" + id, {{"Cookie", m_cookie}})->status;
    }
    std::string onlyContact(const std::string &fields) {
        const auto id = contacts().at(0).at("_id").get<std::string>();
        EXPECT_EQ(get("api/contacts")->body, R"({"contacts":[{"_id":")" + id + "\"," + fields + "}]}");
        return id;
    }
};

TEST_F(DirectoryTest, TemplatesAreKeptForEachAccountUntilTheyAreDeleted) {
    EXPECT_EQ(get("api/templates")->body, R"({"templates":[]})");
    EXPECT_EQ(postStatus("api/templates/create", R"({"name":"One","subject":"S","body":"<p>\u00e4\u2028</p>"})"), 200);
    EXPECT_EQ(postStatus("api/templates/create", R"({"name":" ","subject":"","body":""})"), 200);
    EXPECT_EQ(postStatus("api/templates/create", R"({"name":"","subject":"","body":""})"), 400);
    EXPECT_EQ(postStatus("api/templates/create", R"({"name":"No body","subject":""})"), 400);
    start();
    const auto templates = getJSON("api/templates").at("templates");
    ASSERT_EQ(templates.size(), 2U);
    const auto first = templates[0].at("_id").get<std::string>();
    EXPECT_EQ(templates[0], (json{{"_id", first}, {"name", "One"}, {"subject", "S"}, {"body", "<p>ä\u2028</p>"}}));
    EXPECT_EQ(templates[1].at("name"), " ");

    signIn();
    EXPECT_EQ(postStatus("api/templates/delete/" + first, ""), 404) << "somebody else's";
    EXPECT_GE(getJSON("api/templates").at("templates").size(), 3U) << "the demo account's own";
    signIn("ilias");
    EXPECT_EQ(postStatus("api/templates/delete/" + first, ""), 200);
    EXPECT_EQ(postStatus("api/templates/delete/" + first, ""), 404);
    EXPECT_EQ(getJSON("api/templates").at("templates").size(), 1U);
}

TEST_F(DirectoryTest, ContactsAreAddedChangedAndDeleted) {
    EXPECT_EQ(get("api/contacts")->body, R"({"contacts":[]})");
    EXPECT_EQ(postStatus("api/contacts/add", R"({"email":" bob@b.example","name":"Bob\nRay"})"), 200);
    EXPECT_EQ(postStatus("api/contacts/add", R"({"email":"nobody","name":""})"), 400);
    onlyContact(R"("email":"bob@b.example","frequency":0,"name":"Bob Ray","source":"manual")");
    EXPECT_EQ(postStatus("api/contacts/add", R"({"email":"BOB@b.example","name":"Robert"})"), 200);
    EXPECT_EQ(postStatus("api/contacts/add", R"({"email":"bob@b.example","name":""})"), 200);
    const auto id = onlyContact(R"("email":"bob@b.example","frequency":0,"name":"Robert","source":"manual")");
    const auto update = [&](const std::string &email) {
        return postStatus("api/contacts/update", json{{"contact_id", id}, {"email", email}, {"name", ""}}.dump());
    };
    EXPECT_EQ(update("ray@b.example"), 200);
    onlyContact(R"("email":"ray@b.example","frequency":0,"name":"","source":"manual")");
    EXPECT_EQ(update("ray"), 400);
    EXPECT_EQ(postStatus("api/contacts/add", R"({"email":"other@b.example","name":""})"), 200);
    EXPECT_EQ(update("Other@b.example"), 409);

    signIn();
    EXPECT_EQ(update("mine@b.example"), 404) << "somebody else's";
    EXPECT_EQ(removeContact(id), 404) << "somebody else's";
    signIn("ilias");
    EXPECT_EQ(removeContact(id), 200);
    EXPECT_EQ(removeContact(id), 404);
    EXPECT_EQ(contacts().size(), 1U);
}

TEST_F(DirectoryTest, WhomOneWritesToBecomesAContactAndRises) {
    EXPECT_EQ(postStatus("api/contacts/add", R"({"email":"ilias@corvanite.example","name":"Me"})"), 200);
    auto request = mail();
    request["to"] = "Dana O. <dana@corvanite.example>, Ilias B. <ILIAS@corvanite.example>";
    sendWell(request);
    request["to"] = "tides@corvanite.example";
    request["bcc"] = "Somebody Else <dana@corvanite.example>";
    sendWell(request);
    request["to"] = "nobody";
    EXPECT_EQ(send(request)->status, 400);
    std::vector<std::string> rows;
    for (const auto &contact : contacts())
        rows.push_back(contact.at("email").get<std::string>() + " " + contact.at("name").get<std::string>() + " " +
                       contact.at("frequency").dump() + " " + contact.at("source").get<std::string>());
    EXPECT_EQ(rows,
              (std::vector<std::string>{"dana@corvanite.example Dana O. 2 sent", "ilias@corvanite.example Me 1 manual",
                                        "tides@corvanite.example  1 sent"}));
}

TEST_F(DirectoryTest, AMessageThatHasGoneOutIsSentWhateverBecomesOfTheContacts) {
    SQLiteDatabase(m_folder.path() / "state/contacts.sqlite").execute("DROP TABLE contact");
    sendWell(mail());
    EXPECT_EQ(filesIn(m_recipient / "new").size(), 1U);
}

TEST_F(DirectoryTest, TheDemoAccountKnowsPeopleMostWrittenToFirst) {
    signIn();
    std::vector<int> frequencies;
    for (const auto &contact : contacts())
        frequencies.push_back(contact.at("frequency").get<int>());
    EXPECT_GE(frequencies.size(), 10U);
    EXPECT_TRUE(std::is_sorted(frequencies.rbegin(), frequencies.rend()));
    EXPECT_EQ(frequencies.back(), 0);
}

} // namespace
