#include "ServerTest.h"

namespace {

using nlohmann::json;

class AITest : public testing::Test {
protected:
    AITest()
        : m_client(m_server.address()) {
        const auto answer = post("api/auth/login", {{"username", "demo"}, {"password", "corvanite"}});
        const auto cookie = answer->get_header_value("Set-Cookie");
        m_cookie = cookie.substr(0, cookie.find(';'));
    }

    httplib::Result post(const std::string &path, const json &body) {
        return m_client.Post("/" + path, {{"Cookie", m_cookie}}, body.dump(), "application/json");
    }
    json listed(const std::string &folder) {
        return json::parse(m_client.Get("/api/emails/list?per_page=500&folder=" + folder, {{"Cookie", m_cookie}})->body)
            .at("emails");
    }
    /// As the client asks: subject and sender, and the start of the text on demand.
    std::vector<double> scores(const json &emails, bool withBody) {
        auto asked = json::array();
        for (const auto &email : emails) {
            asked.push_back({{"subject", email.at("subject")}, {"from", email.at("from")}});
            if (withBody)
                asked.back()["body"] = email.at("body_text");
        }
        std::vector<double> found(asked.size(), -1);
        const auto answer = json::parse(post("api/ai/spam-check", {{"emails", asked}})->body);
        for (const auto &score : answer.at("scores"))
            found.at(score.at("index").get<std::size_t>()) = score.at("spam_score").get<double>();
        return found;
    }

    TemporaryFolder m_folder;
    RunningServer m_server{{"--port", "0", "--state", m_folder.path() / "state"}};
    httplib::Client m_client;
    std::string m_cookie;
};

bool isJunk(const json &email) {
    return email.at("from").get<std::string>().find("harboursavings-secure") != std::string::npos;
}

} // namespace

TEST_F(AITest, TellsJunkFromOrdinaryMailOfTheDemoMailbox) {
    for (const bool withBody : {false, true}) {
        for (const char *folder : {"Junk", "INBOX", "Archive", "Sent", "Newsletters", "Receipts"}) {
            const auto emails = listed(folder);
            ASSERT_FALSE(emails.empty()) << folder;
            const auto found = scores(emails, withBody);
            for (std::size_t i = 0; i < emails.size(); ++i) {
                const auto &email = emails[i];
                if (folder == std::string("Junk") || isJunk(email))
                    EXPECT_GE(found[i], 0.8) << email.at("subject") << email.at("from");
                else
                    EXPECT_LT(found[i], 0.5) << folder << email.at("subject") << email.at("from");
                EXPECT_LE(found[i], 1.0);
            }
        }
    }
}

TEST_F(AITest, SaysThatItHasNoLanguageModel) {
    EXPECT_EQ(post("api/ai/chat", {{"message", "Hello"}})->body,
              R"({"error":"This development server has no language model."})");
}

TEST_F(AITest, WritesADraftFromStockPhrases) {
    const struct {
        const char *prompt, *existing, *answer;
    } rows[]{
        {"Decline the invitation, say SORRY and apologise", "",
         R"({"content":"Hello,\n\nPlease accept my apologies.\nUnfortunately I have to decline this time.\n)"
         R"(It would be a pleasure to see you there.\n\nKind regards"})"},
        {"the tide is high", "<p>Is it?</p>",
         R"({"content":"Hello,\n\nThank you for your message.\nThe tide is high.\n\nKind regards"})"},
        {"wirklich?", "<br><style>p {}</style>", R"({"content":"Hello,\n\nWirklich?\n\nKind regards"})"},
        {" \n", "", R"({"error":"The prompt is empty."})"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(post("api/ai/compose", {{"prompt", row.prompt}, {"existing_content", row.existing}})->body,
                  row.answer);
}

TEST_F(AITest, KnowsWhichAccountsHaveAI) {
    const auto me = json::parse(m_client.Get("/api/auth/me", {{"Cookie", m_cookie}})->body).at("user");
    EXPECT_EQ(me.at("has_ai_key"), true);
    EXPECT_NE(me.at("ai_provider"), "");
    const auto answer =
        post("api/auth/register",
             {{"username", "new"}, {"password", "secret"}, {"email", "new@x.example"}, {"full_name", "New"}});
    m_cookie = answer->get_header_value("Set-Cookie");
    m_cookie.resize(m_cookie.find(';'));
    EXPECT_TRUE(json::parse(post("api/ai/spam-check", {{"emails", json::array()}})->body).contains("error"));
}

TEST_F(AITest, RefusesWhatIsNoListOfMessages) {
    EXPECT_EQ(post("api/ai/spam-check", json::object())->status, 400);
    EXPECT_EQ(post("api/ai/spam-check", {{"emails", "x"}})->status, 400);
}
