#include "net/APIClient.h"

#include "net/ServerAddress.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

using namespace Qt::StringLiterals;

namespace {

using Query = APIClient::Query;

class APIClientRequestTest : public CoreTest {
protected:
    APIClientRequestTest() { server.makeCurrent(); }

    FakeServer server;
    APIClient &client = APIClient::shared();
};

QCoro::Task<> dropped(QCoro::Task<JSONValue> task) {
    co_await task;
}

QCoro::Task<> dropped(QCoro::Task<QByteArray> task) {
    co_await task;
}

struct RequestForm {
    const char *name;
    QByteArray method;
    std::optional<QByteArray> accept, contentType, contentLength;
    QByteArray body;
    std::function<QCoro::Task<>(APIClient &)> send;
};

void PrintTo(const RequestForm &form, std::ostream *stream) {
    *stream << form.name;
}

const QByteArray json = "application/json";
const QJsonObject dictionary{
    {u"uid"_s, 7}, {u"name"_s, u"Zoë \"x\""_s}, {u"on"_s, true}, {u"none"_s, QJsonValue::Null}};
const QByteArray dictionaryText = "{\"name\":\"Zo\xc3\xab \\\"x\\\"\",\"none\":null,\"on\":true,\"uid\":7}";

const RequestForm forms[] = {
    {"get", "GET", json, {}, "0", "", [](auto &client) { return dropped(client.template get<JSONValue>(u"path"_s)); }},
    {"post", "POST", json, json, "15", "{\"key\":\"value\"}",
     [](auto &client) {
         const JSONValue body{JSONValue::Object{{u"key"_s, JSONValue{u"value"_s}}}};
         return dropped(client.template post<JSONValue>(u"path"_s, body));
     }},
    {"postVoid", "POST", {}, json, "2", "{}", [](auto &client) { return client.postVoid(u"path"_s, QJsonObject()); }},
    {"postVoidWithoutBody", "POST", {}, json, "0", "", [](auto &client) { return client.postVoid(u"path"_s); }},
    {"postJSON",
     "POST",
     {},
     json,
     "51",
     dictionaryText,
     [](auto &client) { return client.postJSON(u"path"_s, dictionary); }},
    {"putJSON",
     "PUT",
     {},
     json,
     "51",
     dictionaryText,
     [](auto &client) { return client.putJSON(u"path"_s, dictionary); }},
    {"delete", "DELETE", {}, {}, "0", "", [](auto &client) { return client.delete_(u"path"_s); }},
    {"getData", "GET", {}, {}, "0", "", [](auto &client) { return dropped(client.getData(u"path"_s)); }},
    {"download",
     "GET",
     {},
     {},
     "0",
     "",
     [](auto &client) { return dropped(client.download(u"path"_s, {}, [](qint64, qint64, double) {})); }},
};

class RequestFormTest : public APIClientRequestTest, public testing::WithParamInterface<RequestForm> {};

} // namespace

TEST_P(RequestFormTest, hasItsMethodHeadersAndBody) {
    const auto &form = GetParam();
    auto &exchange = server.expect(form.method, "/path").json("{}");
    await(form.send(client));
    const auto &request = exchange.request();
    EXPECT_EQ(request.header("accept"), form.accept);
    EXPECT_EQ(request.header("content-type"), form.contentType);
    EXPECT_EQ(request.header("content-length"), form.contentLength);
    EXPECT_EQ(request.body, form.body);
    for (const auto *absent : {"authorization", "cookie", "x-corvanite-subscription", "transfer-encoding", "origin"})
        EXPECT_EQ(request.header(absent), std::nullopt) << absent;
}

INSTANTIATE_TEST_SUITE_P(Forms, RequestFormTest, testing::ValuesIn(forms), rowName);

TEST_F(APIClientRequestTest, subscriptionCommandsCarryTheirHeader) {
    using Action = APIClient::SubscriptionAction;
    const std::map<Action, QByteArray> commands{
        {Action::start, "start"}, {Action::cancel, "cancel"}, {Action::logout, "logout"}};
    for (const auto &[action, word] : commands) {
        auto &exchange = server.expect("POST", "/api/admin/subscription/chatgpt/" + word).json("{\"connected\":true}");
        EXPECT_EQ(await(client.subscriptionRequest(action)).connected, true);
        EXPECT_EQ(exchange.request().header("accept"), json);
        EXPECT_EQ(exchange.request().header("content-type"), json);
        EXPECT_EQ(exchange.request().header("x-corvanite-subscription"), "1");
        EXPECT_EQ(exchange.request().body, "{}");
    }
}

TEST_F(APIClientRequestTest, theSubscriptionStatusIsAPlainQuestion) {
    auto &exchange = server.expect("GET", "/api/admin/subscription/chatgpt/status").json("{\"plan\":\"plus\"}");
    EXPECT_EQ(await(client.subscriptionRequest(APIClient::SubscriptionAction::status)).plan, u"plus"_s);
    EXPECT_EQ(exchange.request().header("accept"), json);
    EXPECT_EQ(exchange.request().header("content-type"), std::nullopt);
    EXPECT_EQ(exchange.request().header("x-corvanite-subscription"), std::nullopt);
    EXPECT_EQ(exchange.request().body, "");
}

TEST_F(APIClientRequestTest, waitsAsLongAsTheFormAllows) {
    using namespace std::chrono_literals;
    ManualClock clock;
    auto &plain = server.expect("GET", "/plain").held();
    auto &status = server.expect("GET", "/api/admin/subscription/chatgpt/status").held();
    auto plainTask = client.getData(u"plain"_s);
    auto statusTask = client.subscriptionRequest(APIClient::SubscriptionAction::status);
    plain.request();
    status.request();
    clock.advance(60s - 1ms);
    EXPECT_EQ(clock.scheduledCount(), 2);
    clock.advance(1ms);
    EXPECT_EQ(clock.nextDue(), 5s);
    clock.advance(5s);
    EXPECT_EQ(failureOf(std::move(plainTask)), u"The request timed out."_s);
    EXPECT_EQ(failureOf(std::move(statusTask)), u"The request timed out."_s);
}

TEST_F(APIClientRequestTest, theRawQueryIsSortedAndEncoded) {
    const std::vector<std::pair<Query, QByteArray>> table{
        {{}, ""},
        {{{u"b"_s, u"2"_s}, {u"a"_s, u"1"_s}, {u"B"_s, u"3"_s}}, "?B=3&a=1&b=2"},
        {{{u"q"_s, u"one + two"_s}}, "?q=one%20%2B%20two"},
        {{{u"q"_s, u"a&b=c#d"_s}}, "?q=a%26b%3Dc%23d"},
        {{{u"q"_s, u"100%"_s}}, "?q=100%25"},
        {{{u"q"_s, u"%2B"_s}}, "?q=%252B"},
        {{{u"q"_s, u"\u00fc\u20ac\U0001f600"_s}}, "?q=%C3%BC%E2%82%AC%F0%9F%98%80"},
        {{{u"folder"_s, u"INBOX/Sent Items"_s}}, "?folder=INBOX/Sent%20Items"},
        {{{u"q"_s, u"a.b-c_d~e@f:g,h;i"_s}}, "?q=a.b-c_d~e@f:g,h;i"},
        {{{u"q"_s, u"\"<>\\^`{|}[]"_s}}, "?q=%22%3C%3E%5C%5E%60%7B%7C%7D%5B%5D"},
        {{{u"q"_s, u"a\nb\r\tc"_s}}, "?q=a%0Ab%0D%09c"},
        {{{u"empty"_s, u""_s}}, "?empty="},
        {{{u"na me"_s, u"x"_s}}, "?na%20me=x"},
    };
    for (const auto &[query, expected] : table) {
        server.expect("GET", "/api/x" + expected).answer(200);
        await(client.getData(u"api/x"_s, query));
    }
}

TEST_F(APIClientRequestTest, aQueryInThePathStandsUntouched) {
    server.expect("GET", "/api/x?folder=a%2Fb&flag").answer(200);
    await(client.getData(u"api/x?folder=a%2Fb&flag"_s));
    server.expect("GET", "/api/%2FINBOX%20x/7").answer(200);
    await(client.getData(u"api/%2FINBOX%20x/7"_s));
}

TEST_F(APIClientRequestTest, joinsAddressAndPathWithOneSlash) {
    struct Row {
        QString address, path;
        std::optional<QString> expected;
    };
    const Row table[] = {
        {u"https://mail.example"_s, u"api/me"_s, u"https://mail.example/api/me"_s},
        {u"https://mail.example/"_s, u"api/me"_s, u"https://mail.example//api/me"_s},
        {u"https://mail.example/base"_s, u"api/me"_s, u"https://mail.example/base/api/me"_s},
        {u"http://127.0.0.1:8080"_s, u"api/me?x=1"_s, u"http://127.0.0.1:8080/api/me?x=1"_s},
        {u"https://[::1]:8443"_s, u"api"_s, u"https://[::1]:8443/api"_s},
        {u"https://mail example"_s, u"api"_s, std::nullopt},
        {u"https://mail.example:port"_s, u"api"_s, std::nullopt},
        {u"https://mail.example"_s, u"api/a b"_s, std::nullopt},
        {u"https://mail.example"_s, u"api/100%"_s, std::nullopt},
    };
    for (const auto &row : table) {
        UserDefaults::standard().set(u"serverURL"_s, row.address);
        const auto url = client.makeURL(row.path);
        EXPECT_EQ(url ? std::optional(url->toString(QUrl::FullyEncoded)) : std::nullopt, row.expected)
            << qPrintable(row.address) << ' ' << qPrintable(row.path);
    }
}

TEST_F(APIClientRequestTest, withoutAStoredAddressTheDefaultOneIsUsedAndNotStored) {
    UserDefaults::standard().remove(u"serverURL"_s);
    EXPECT_EQ(client.makeURL(u"api/me"_s)->toString(), defaultServerEndpoint() + u"/api/me"_s);
    EXPECT_FALSE(UserDefaults::standard().contains(u"serverURL"_s));
}

TEST_F(APIClientRequestTest, anAddressThatDoesNotParseSendsNothing) {
    UserDefaults::standard().set(u"serverURL"_s, u"https://no host"_s);
    EXPECT_EQ(failureOf(client.getData(u"api"_s)), u"Invalid server URL"_s);
    EXPECT_EQ(failureOf(client.postVoid(u"api"_s)), u"Invalid server URL"_s);
    client.clearCookies();
}

TEST_F(APIClientRequestTest, storesATypedAddressInItsNormalForm) {
    const std::vector<std::pair<QString, QString>> table{
        {u"  mail.example/ \n"_s, u"https://mail.example"_s},
        {u"http://127.0.0.1:8080"_s, u"http://127.0.0.1:8080"_s},
        {u"https://mail.example//"_s, u"https://mail.example/"_s},
        {u"httpd.example"_s, u"httpd.example"_s},
        {u"HTTPS://mail.example"_s, u"https://HTTPS://mail.example"_s},
        {u"https://mail.example/base/"_s, u"https://mail.example/base"_s},
        {u"mail.example/ /"_s, u"https://mail.example/ "_s},
        {u""_s, u"https://"_s},
        {u"/"_s, u"https://"_s},
    };
    for (const auto &[typed, stored] : table) {
        client.setServerURL(typed);
        EXPECT_EQ(UserDefaults::standard().text(u"serverURL"_s), stored) << qPrintable(typed);
    }
}

TEST_F(APIClientRequestTest, aChangedAddressTakesEffectOnTheNextRequest) {
    server.expect("GET", "/first").answer(200);
    await(client.getData(u"first"_s));
    FakeServer other;
    other.makeCurrent();
    other.expect("GET", "/second").answer(200);
    await(client.getData(u"second"_s));
}

TEST_F(APIClientRequestTest, manyRequestsAreUnderWayAtOnceAndKeepTheirAnswers) {
    std::vector<QCoro::Task<QByteArray>> tasks;
    auto &slow = server.expect("GET", "/slow").held();
    auto slowTask = client.getData(u"slow"_s);
    for (int number = 0; number < 20; ++number) {
        server.expect("GET", "/" + QByteArray::number(number)).answer(200, QByteArray::number(number));
        tasks.push_back(client.getData(QString::number(number)));
    }
    for (int number = 0; number < 20; ++number)
        EXPECT_EQ(await(std::move(tasks[number])), QByteArray::number(number));
    slow.sendHead(200, "text/plain", "Content-Length: 1\r\n");
    slow.send("s");
    EXPECT_EQ(await(std::move(slowTask)), "s");
}

TEST_F(APIClientRequestTest, aResultComesBackToTheThreadThatAsked) {
    server.expect("GET", "/good").answer(200);
    server.expect("GET", "/bad").answer(500);
    const auto asked = [](APIClient &asks, QString path) -> QCoro::Task<bool> {
        auto *caller = QThread::currentThread();
        try {
            co_await asks.getData(path);
        } catch (const APIError &) {
        }
        co_return QThread::currentThread() == caller;
    };
    EXPECT_TRUE(await(asked(client, u"good"_s)));
    EXPECT_TRUE(await(asked(client, u"bad"_s)));
}
