#include "ai/AIService.h"

#include "net/APIError.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

using namespace Qt::StringLiterals;

namespace {

class AIServiceTest : public CoreTest {
protected:
    void SetUp() override { server.makeCurrent(); }

    FakeServer server;
    AIService service;
};

/// What an operation sends, and what it makes of each form of answer.
struct OperationRow {
    const char *name;
    QCoro::Task<QString> (*run)(AIService &service);
    QByteArray path, body, answer;
    QString result;
};

QString texts(const std::vector<AISpamScore> &scores) {
    QStringList all;
    for (const auto &score : scores)
        all.append(u"%1=%2"_s.arg(score.index).arg(score.spam_score));
    return all.join(u' ');
}

QCoro::Task<QString> check(AIService &service, std::vector<AISpamEmail> emails) {
    const auto scores = co_await service.spamCheck(std::move(emails));
    co_return texts(scores);
}

const OperationRow operations[] = {
    {"Chat", [](AIService &service) { return service.chat(u"Hi"_s, {}); }, "/api/ai/chat", R"({"message": "Hi"})",
     R"({"reply": "Hello", "usage": {"input_tokens": 3}})", u"Hello"_s},
    {"ChatWithHistory",
     [](AIService &service) {
         return service.chat(u"And?"_s, {{u"user"_s, u"Hi"_s}, {u"assistant"_s, u"Hello"_s}}, u"boat"_s);
     },
     "/api/ai/chat",
     R"({"message": "And?", "search": "boat",
         "history": [{"role": "user", "content": "Hi"}, {"role": "assistant", "content": "Hello"}]})",
     R"({"usage": null})", QString()},
    {"Compose", [](AIService &service) { return service.compose(u"Thank them"_s, std::nullopt); }, "/api/ai/compose",
     R"({"prompt": "Thank them", "existing_content": ""})", R"({"content": "Thanks"})", u"Thanks"_s},
    {"ComposeOver", [](AIService &service) { return service.compose(u"Shorter"_s, u"<p>Long</p>"_s); },
     "/api/ai/compose", R"({"prompt": "Shorter", "existing_content": "<p>Long</p>"})", R"({})", QString()},
    {"SpamCheck",
     [](AIService &service) {
         return check(service, {{u"Win"_s, u"x@y.org"_s, std::nullopt}, {QString(u""_s), u""_s, u"Text"_s}});
     },
     "/api/ai/spam-check",
     R"({"emails": [{"subject": "Win", "from": "x@y.org"}, {"subject": "", "from": "", "body": "Text"}]})",
     R"({"scores": [{"index": 1, "spam_score": 1}, {"index": 0, "spam_score": 0.25}]})", u"1=1 0=0.25"_s},
    {"SpamCheckWithoutScores", [](AIService &service) { return check(service, {}); }, "/api/ai/spam-check",
     R"({"emails": []})", R"({})", QString()},
};

class Operation : public AIServiceTest, public testing::WithParamInterface<OperationRow> {};

struct AvailabilityRow {
    const char *name;
    QByteArray user;
    bool isAvailable;
};

const AvailabilityRow users[] = {
    {"NoProvider", R"({"has_ai_key": true})", false},
    {"ProviderNone", R"({"ai_provider": "none", "has_ai_key": true})", false},
    {"NoKey", R"({"ai_provider": "other"})", false},
    {"Key", R"({"ai_provider": "other", "has_ai_key": true})", true},
    {"OwnModel", R"({"ai_provider": "ollama", "has_ai_key": false})", true},
};

class Availability : public CoreTest, public testing::WithParamInterface<AvailabilityRow> {};

} // namespace

TEST_P(Operation, SendsExactlyItsKeys) {
    const auto &row = GetParam();
    auto &request = server.expect("POST", row.path).json(row.answer);
    EXPECT_EQ(await(row.run(service)), row.result);
    EXPECT_EQ(parseJSON(request.request().body), parseJSON(row.body));
    EXPECT_EQ(request.request().header("accept"), "application/json");
    EXPECT_EQ(request.request().header("content-type"), "application/json");
}

TEST_P(Operation, FailsWithAnErrorInTheAnswerEvenBesideAResult) {
    auto answer = GetParam().answer;
    answer.insert(1, answer == "{}" ? R"("error": "No model")" : R"("error": "No model", )");
    server.expect("POST", GetParam().path).json(answer);
    EXPECT_EQ(failureOf(GetParam().run(service)), u"No model"_s);
}

INSTANTIATE_TEST_SUITE_P(, Operation, testing::ValuesIn(operations), rowName);

TEST_F(AIServiceTest, AnEmptyErrorIsAnError) {
    server.expect("POST", "/api/ai/chat").json(R"({"reply": "Hello", "error": ""})");
    EXPECT_THROW(await(service.chat(u"Hi"_s, {})), APIError);
}

TEST_F(AIServiceTest, StatusesFailAsEverywhere) {
    server.expect("POST", "/api/ai/compose").json(R"({"error": "Quota used up"})", 429);
    EXPECT_EQ(failureOf(service.compose(u"X"_s, std::nullopt)), u"Quota used up"_s);
    server.expect("POST", "/api/ai/spam-check").json(R"({"scores": [{"index": 0}]})");
    EXPECT_THROW(await(service.spamCheck({})), DecodingError);
}

TEST_P(Availability, NeedsAProviderAndAKey) {
    EXPECT_EQ(isAIAvailable(decodeJSON<User>(parseJSON(GetParam().user))), GetParam().isAvailable);
}

TEST(AIAvailability, NobodySignedInHasNone) {
    EXPECT_FALSE(isAIAvailable(std::nullopt));
}

INSTANTIATE_TEST_SUITE_P(, Availability, testing::ValuesIn(users), rowName);

TEST(AIUsageResponse, EveryKeyMayBeAbsent) {
    EXPECT_EQ(decodeJSON<AIUsageResponse>(parseJSON("{}")).daily, std::nullopt);
    const auto usage = decodeJSON<AIUsageResponse>(parseJSON(
        R"({"total_input": 7, "by_operation": {"chat": {"requests": 2}}, "by_provider": {"own": {"input_tokens": null}},
            "daily": {"2026-11-22": {"input": 3, "output": 4, "requests": 1}}})"));
    EXPECT_EQ(usage.total_input, 7);
    EXPECT_EQ(usage.by_operation->at(u"chat"_s), (AIUsageByOp{std::nullopt, std::nullopt, 2}));
    EXPECT_EQ(usage.by_provider->at(u"own"_s), AIUsageByProvider());
    EXPECT_EQ(usage.daily->at(u"2026-11-22"_s), (AIUsageDaily{3, 4, 1}));
}
