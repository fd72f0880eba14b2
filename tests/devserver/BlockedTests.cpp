#include "ServerTest.h"

#include "rules/BlockedRule.h"

namespace {

using nlohmann::json;

struct RuleRow {
    const char *name;
    const char *type, *pattern, *from, *subject;
    bool isMatch;
};

class BlockedRules : public testing::TestWithParam<RuleRow> {};

const RuleRow rules[] = {
    {"Address", "sender", "Spam@Shop.example", "Shop <spam@shop.example>", "", true},
    {"OtherAddress", "sender", "spam@shop.example", "Shop <nospam@shop.example>", "", false},
    {"BareAddress", "sender", "spam@shop.example", "spam@shop.example", "", true},
    {"Domain", "sender", "shop.example", "Shop <a@shop.example>", "", true},
    {"DomainWithSign", "sender", "@shop.example", "Shop <a@shop.example>", "", true},
    {"Subdomain", "sender", "shop.example", "Shop <a@news.shop.example>", "", true},
    {"EndOfADomain", "sender", "shop.example", "Shop <a@bishop.example>", "", false},
    {"StartOfADomain", "sender", "shop.example", "Shop <a@shop.example.net>", "", false},
    {"AddressWildcard", "sender", "*@shop.example", "Shop <a@shop.example>", "", true},
    {"AddressWildcardInSubdomain", "sender", "*@shop.example", "Shop <a@news.shop.example>", "", false},
    {"WildcardWithin", "sender", "news-*@*.example", "<news-42@shop.example>", "", true},
    {"NameLooksLikeTheAddress", "sender", "boss@firm.example", "\"boss@firm.example\" <x@evil.example>", "", false},
    {"UnknownTypeMeansSender", "domain", "shop.example", "a@shop.example", "", true},
    {"NameAnywhere", "name", "casino", "\"Golden CASINO Club\" <a@b.example>", "", true},
    {"NameIsNotTheAddress", "name", "casino", "Club <casino@b.example>", "", false},
    {"NameWildcardIsWhole", "name", "golden*", "Old Golden <a@b.example>", "", false},
    {"NameWildcard", "name", "*casino*", "The Casino <a@b.example>", "", true},
    {"SubjectAnywhere", "subject", "prize", "a@b.example", "Your PRIZES", true},
    {"SubjectWildcard", "subject", "*win*money*", "a@b.example", "You win much money now", true},
    {"SubjectWildcardInOrder", "subject", "*win*money*", "a@b.example", "Money for winners", false},
    {"SubjectBeyondASCII", "subject", "größe", "a@b.example", "Die GRÖSSE? Größe!", true},
    {"PatternIsNoExpression", "subject", "a.c", "x@b.example", "abc", false},
    {"QuestionMarkIsOne", "subject", "why?", "x@b.example", "whys", false},
};

class BlockedTest : public ServerTest {
protected:
    void startStream() {
        start();
        signIn();
        m_events = openEvents();
    }
    void block(const std::string &type, const std::string &pattern) {
        EXPECT_EQ(postStatus("api/blocked/add", json{{"type", type}, {"pattern", pattern}}.dump()), 200);
    }
    json blocked() { return getJSON("api/blocked").at("blocked"); }

    std::unique_ptr<EventReader> m_events;
};

const std::string unwanted = "From: Shop <a@news.shop.example>\nSubject: Buy\n\nx\n";
const std::string wanted = "From: Ilias <ilias@corvanite.example>\nSubject: Hello\n\nx\n";

} // namespace

TEST_P(BlockedRules, Match) {
    const auto &row = GetParam();
    EXPECT_EQ(matches({"id", row.type, row.pattern}, row.from, row.subject), row.isMatch);
}

INSTANTIATE_TEST_SUITE_P(, BlockedRules, testing::ValuesIn(rules), [](const auto &row) { return row.param.name; });

TEST_F(BlockedTest, RulesAreKeptInOrderAndRemovedByEitherForm) {
    start({"--account", "demo:corvanite", "--account", "other:secret"});
    signIn();
    EXPECT_EQ(blocked(), json::array());
    block("sender", "shop.example");
    block("subject", "*prize*");
    block("name", "Casino");
    block("sender", "shop.example");
    ASSERT_EQ(blocked().size(), 3U);
    const auto first = blocked()[0];
    EXPECT_EQ(first.at("type"), "sender");
    EXPECT_EQ(first.at("pattern"), "shop.example");

    signIn("other", "secret");
    EXPECT_EQ(blocked(), json::array());
    EXPECT_EQ(postStatus("api/blocked/delete", json{{"blocked_id", first.at("_id")}}.dump()), 404);
    signIn();
    EXPECT_EQ(postStatus("api/blocked/delete", json{{"blocked_id", first.at("_id")}}.dump()), 200);
    EXPECT_EQ(postStatus("api/blocked/delete", R"({"type":"name","pattern":"Casino"})"), 200);
    EXPECT_EQ(postStatus("api/blocked/delete", R"({"type":"name","pattern":"Casino"})"), 404);
    EXPECT_EQ(postStatus("api/blocked/add", R"({"type":"name","pattern":" \t"})"), 400);
    start();
    signIn();
    ASSERT_EQ(blocked().size(), 1U);
    EXPECT_EQ(blocked()[0].at("pattern"), "*prize*");
}

TEST_F(BlockedTest, MatchingMailIsDeletedAndNeverAnnounced) {
    startStream();
    block("sender", "shop.example");
    deliver("2000.a", unwanted);
    deliver("2001.b", wanted);
    const auto event = m_events->waitFor("new_emails");
    EXPECT_EQ(event.at("count"), 1);
    EXPECT_EQ(event.at("latest").at(0).at("subject"), "Hello");
    EXPECT_EQ(files(), std::vector<std::string>{"new/2001.b"});
    EXPECT_EQ(getJSON("api/emails/notification-state?folder=INBOX").at("total"), 1);
}

TEST_F(BlockedTest, MailThatIsThereAlreadyStays) {
    deliver("1000.a", unwanted);
    startStream();
    block("sender", "shop.example");
    deliver("2000.b", wanted);
    m_events->waitFor("new_emails");
    start();
    EXPECT_EQ(files(), (std::vector<std::string>{"new/1000.a", "new/2000.b"}));
}

TEST_F(BlockedTest, MailThatCameWhileTheServerWasDownIsDeletedToo) {
    startStream();
    block("subject", "buy");
    EXPECT_EQ(m_server->terminate(), 0);
    deliver("2000.a", unwanted);
    deliver("2001.b", wanted);
    start();
    EXPECT_EQ(files(), std::vector<std::string>{"new/2001.b"});
}

TEST_F(BlockedTest, AMessageThatIsMovedBackIsNoDelivery) {
    deliver("1000.a:2,", unwanted, "cur", ".Archive");
    startStream();
    block("sender", "shop.example");
    EXPECT_EQ(postStatus("api/emails/move", R"({"uid":1,"from_folder":"Archive","to_folder":"INBOX"})"), 200);
    EXPECT_EQ(files(), std::vector<std::string>{"cur/1000.a:2,"});
}
