#include "platform/URLSession.h"

#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class URLSessionTest : public CoreTest {
protected:
    URLRequest request(const QByteArray &method, const QString &path, std::optional<QByteArray> body = {}) {
        return {.url = QUrl(server.address() + path),
                .method = method,
                .headers = {{"Content-Type", "text/plain"}},
                .body = std::move(body)};
    }

    URLError::Code failureCode(QCoro::Task<HTTPResponse> task) {
        try {
            await(std::move(task));
        } catch (const URLError &error) {
            return error.code();
        }
        ADD_FAILURE() << "the request did not fail";
        return URLError::Code::other;
    }

    /// Leaves one connection open that has served a request.
    void keepConnection() {
        server.expect("GET", "/warm").answer(200);
        await(session.data(request("GET", u"/warm"_s)));
    }

    FakeServer server;
    URLSession session{nullptr};
};

/// A command whose connection is closed without an answer.
struct Command {
    const char *name;
    QByteArray method;
    std::optional<QByteArray> body;
    bool onKeptConnection;
};

const Command commands[] = {
    {"POST", "POST", "one", false},
    {"POSTKept", "POST", "one", true},
    {"EmptyPOST", "POST", QByteArray(), false},
    {"EmptyPOSTKept", "POST", QByteArray(), true},
    {"POSTWithoutBody", "POST", std::nullopt, false},
    {"POSTWithoutBodyKept", "POST", std::nullopt, true},
    {"LargePOST", "POST", QByteArray(3 << 20, 'x'), false},
    {"LargePOSTKept", "POST", QByteArray(3 << 20, 'x'), true},
    {"PUT", "PUT", "one", false},
    {"PUTKept", "PUT", "one", true},
    {"DELETE", "DELETE", std::nullopt, false},
    {"DELETEKept", "DELETE", std::nullopt, true},
};

void PrintTo(const Command &command, std::ostream *stream) {
    *stream << command.name;
}

class OnceOnlyTest : public URLSessionTest, public testing::WithParamInterface<Command> {};

} // namespace

TEST_P(OnceOnlyTest, aCommandWithoutAnswerReachesTheServerOnce) {
    const auto &command = GetParam();
    if (command.onKeptConnection)
        keepConnection();
    auto &exchange = server.expect(command.method, "/command").closing();
    EXPECT_EQ(failureCode(session.data(request(command.method, u"/command"_s, command.body))),
              URLError::Code::connectionLost);
    server.assertSilence();
    EXPECT_EQ(exchange.arrivals(), 1);
    EXPECT_EQ(exchange.request().body, command.body.value_or(QByteArray()));
    EXPECT_EQ(server.connectionCount() - 1, 1) << "the command was tried on another connection";
}

INSTANTIATE_TEST_SUITE_P(Commands, OnceOnlyTest, testing::ValuesIn(commands), rowName);

TEST_F(URLSessionTest, commandsSucceedOnAConnectionThatTheServerClosedWhileIdle) {
    for (const auto &method : QByteArrayList{"GET", "POST", "DELETE"}) {
        keepConnection();
        server.closeConnections();
        server.expect(method, "/next").answer(200, "fine");
        const auto body = method == "POST" ? std::optional<QByteArray>("text") : std::nullopt;
        EXPECT_EQ(await(session.data(request(method, u"/next"_s, body))).body, "fine") << method.toStdString();
    }
}

TEST_F(URLSessionTest, reusesAConnection) {
    for (int round = 0; round < 3; ++round)
        keepConnection();
    EXPECT_EQ(server.connectionCount(), 1);
}

TEST_F(URLSessionTest, twentyRequestsAtOnceGetTheirOwnAnswers) {
    std::vector<QCoro::Task<HTTPResponse>> tasks;
    for (int number = 0; number < 20; ++number) {
        const auto text = QByteArray::number(number);
        server.expect(number % 2 ? "GET" : "POST", "/" + text).answer(200, "answer " + text);
        const auto body = number % 2 ? std::nullopt : std::optional(text);
        tasks.push_back(session.data(request(number % 2 ? "GET" : "POST", u'/' + QString::number(number), body)));
    }
    for (int number = 0; number < 20; ++number)
        EXPECT_EQ(await(std::move(tasks[number])).body, "answer " + QByteArray::number(number));
}

namespace {

struct BadAnswer {
    const char *name;
    QByteArray bytes;
};

/// Answers that end before they are whole, or are none.
const BadAnswer badAnswers[] = {
    {"CutBody", "HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n0123456789"},
    {"CutHead", "HTTP/1.1 200 OK\r\nContent-Le"},
    {"CutStatusLine", "HTTP/1."},
    {"CutChunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\nff\r\nabc"},
    {"CutAfterChunk", "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n3\r\nabc\r\n"},
};

void PrintTo(const BadAnswer &answer, std::ostream *stream) {
    *stream << answer.bytes.toStdString();
}

class CutAnswerTest : public URLSessionTest, public testing::WithParamInterface<BadAnswer> {};

} // namespace

TEST_P(CutAnswerTest, fails) {
    server.expect("GET", "/").raw(GetParam().bytes).closing().anyNumberOfTimes();
    EXPECT_EQ(failureCode(session.data(request("GET", u"/"_s))), URLError::Code::connectionLost);
}

TEST_P(CutAnswerTest, isAskedForOnceByACommand) {
    auto &exchange = server.expect("POST", "/").raw(GetParam().bytes).closing();
    EXPECT_EQ(failureCode(session.data(request("POST", u"/"_s, "body"))), URLError::Code::connectionLost);
    EXPECT_EQ(exchange.arrivals(), 1);
}

INSTANTIATE_TEST_SUITE_P(Answers, CutAnswerTest, testing::ValuesIn(badAnswers), rowName);

TEST_F(URLSessionTest, aChunkedAnswerThatBreaksOffFails) {
    auto &exchange = server.expect("GET", "/").held();
    qsizetype received = 0;
    auto task = session.data(request("GET", u"/"_s), [&](const auto &soFar) { received = soFar.body.size(); });
    exchange.sendHead(200, "text/plain", "Transfer-Encoding: chunked\r\n");
    exchange.send("3\r\nabc\r\nff\r\ndef");
    EXPECT_TRUE(spinUntil([&] { return received == 6; }));
    exchange.close();
    EXPECT_EQ(failureCode(std::move(task)), URLError::Code::connectionLost);
}

TEST_F(URLSessionTest, whatIsNotHTTPIsNoAnswer) {
    for (const QByteArray garbage : {"SSH-2.0-OpenSSH_9.2\r\n", "\x15\x03\x01", "\r\n\r\n", "220 mail ESMTP\r\n"}) {
        server.expect("GET", "/garbage").raw(garbage).closing().anyNumberOfTimes();
        int status = 0;
        try {
            status = await(session.data(request("GET", u"/garbage"_s))).status;
        } catch (const URLError &error) {
            EXPECT_FALSE(error.description().isEmpty());
        }
        EXPECT_EQ(status, 0) << garbage.toStdString();
    }
}

TEST_F(URLSessionTest, readsAnAnswerThatEndsWithItsConnection) {
    const QByteArrayList heads{"HTTP/1.1 200 OK\r\n", "HTTP/1.1 200 OK\r\nConnection: close\r\n",
                               "HTTP/1.0 200 OK\r\n"};
    for (const auto &head : heads)
        for (const qsizetype size : {0, 5, 300000})
            for (const QByteArray method : {"GET", "POST"}) {
                const QByteArray body(size, 'x');
                server.expect(method, "/")
                    .raw(head + "Content-Type: Text/HTML; charset=utf-8\r\n\r\n" + body)
                    .closing();
                const auto response = await(session.data(request(method, u"/"_s, "x")));
                EXPECT_EQ(response.body, body) << head.toStdString();
                EXPECT_EQ(response.mediaType, u"text/html"_s);
                EXPECT_EQ(response.expectedLength, -1);
            }
}

TEST_F(URLSessionTest, readsAChunkedAnswer) {
    server.expect("GET", "/").chunked({"a", "bc", "def"});
    const auto response = await(session.data(request("GET", u"/"_s)));
    EXPECT_EQ(response.body, "abcdef");
    EXPECT_EQ(response.expectedLength, -1);
}

TEST_F(URLSessionTest, statusesOfHTTPAreAnswers) {
    for (const int status : {200, 201, 204, 304, 400, 401, 403, 404, 405, 407, 409, 418, 429, 500, 502, 503, 599}) {
        server.expect("GET", "/").answer(status, status == 204 || status == 304 ? "" : "text");
        EXPECT_EQ(await(session.data(request("GET", u"/"_s))).status, status);
    }
}

TEST_F(URLSessionTest, silenceOfTheServerTimesOut) {
    ManualClock clock;
    auto &exchange = server.expect("GET", "/").held();
    int received = 0;
    auto task = session.data(request("GET", u"/"_s), [&](const auto &) { ++received; });
    exchange.request();
    clock.advance(59s);
    exchange.sendHead(200, "text/plain");
    EXPECT_TRUE(spinUntil([&] { return received == 1; }));
    clock.advance(59s);
    EXPECT_FALSE(task.isReady()) << "the head is a sign of life";
    exchange.send("piece");
    EXPECT_TRUE(spinUntil([&] { return received == 2; }));
    clock.advance(59s);
    EXPECT_FALSE(task.isReady()) << "a piece of the body is a sign of life";
    clock.advance(1s);
    EXPECT_EQ(failureCode(std::move(task)), URLError::Code::timedOut);
    EXPECT_TRUE(spinUntil([&] { return exchange.isClosed(); }));
    EXPECT_EQ(clock.scheduledCount(), 0);
}

TEST_F(URLSessionTest, waitsForEverWithoutATimeout) {
    ManualClock clock;
    auto &exchange = server.expect("GET", "/").held();
    auto patient = request("GET", u"/"_s);
    patient.timeout.reset();
    auto task = session.data(patient);
    exchange.request();
    clock.advance(100h);
    exchange.sendHead(200, "text/plain", "Content-Length: 2\r\n");
    exchange.send("ok");
    EXPECT_EQ(await(std::move(task)).body, "ok");
}

TEST_F(URLSessionTest, cutsOffAnEndlessAnswer) {
    session.maximumBodySize = 1000;
    auto &exchange = server.expect("GET", "/").held();
    auto task = session.data(request("GET", u"/"_s));
    exchange.sendHead(200, "text/plain");
    exchange.send(QByteArray(1001, 'x'));
    EXPECT_EQ(failureCode(std::move(task)), URLError::Code::tooLarge);
    EXPECT_TRUE(spinUntil([&] { return exchange.isClosed(); }));
}

TEST_F(URLSessionTest, anAnswerOfTheGreatestSizePasses) {
    session.maximumBodySize = 1000;
    server.expect("GET", "/").answer(200, QByteArray(1000, 'x'));
    EXPECT_EQ(await(session.data(request("GET", u"/"_s))).body.size(), 1000);
}

TEST_F(URLSessionTest, stopsWhenItIsToldTo) {
    auto &exchange = server.expect("POST", "/").held();
    std::stop_source stop;
    auto task = session.data(request("POST", u"/"_s, "x"), {}, stop.get_token());
    exchange.request();
    stop.request_stop();
    EXPECT_FALSE(task.isReady()) << "a cancelled task ends from the event loop";
    EXPECT_EQ(failureCode(std::move(task)), URLError::Code::cancelled);
    EXPECT_TRUE(spinUntil([&] { return exchange.isClosed(); }));
}

TEST_F(URLSessionTest, aRequestThatIsStoppedBeforehandEndsToo) {
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(failureCode(session.data(request("GET", u"/"_s), {}, stop.get_token())), URLError::Code::cancelled);
}

TEST_F(URLSessionTest, theEndOfTheSessionEndsItsRequests) {
    auto &exchange = server.expect("GET", "/").held();
    auto shortLived = std::make_unique<URLSession>(nullptr);
    auto task = shortLived->data(request("GET", u"/"_s));
    exchange.request();
    shortLived.reset();
    EXPECT_EQ(failureCode(std::move(task)), URLError::Code::cancelled);
}

TEST_F(URLSessionTest, tellsWhyThereIsNoConnection) {
    server.vanish();
    EXPECT_EQ(failureCode(session.data(request("GET", u"/"_s))), URLError::Code::cannotConnect);
    EXPECT_EQ(failureCode(session.data({.url = QUrl(u"http://nowhere.invalid/"_s)})), URLError::Code::cannotFindHost);
    server.returnAgain();
}

TEST_F(URLSessionTest, anAddressThatIsNoneFails) {
    for (const auto &text : {u"/relative"_s, u"gopher://127.0.0.1/"_s, u"http://"_s})
        EXPECT_NE(failureOf(session.data({.url = QUrl(text)})), QString()) << qPrintable(text);
}

TEST_F(URLSessionTest, followsRedirects) {
    for (const int status : {301, 302, 303, 307, 308}) {
        const auto place = "/moved-" + QByteArray::number(status);
        server.expect("GET", place).header("Location", "/new").answer(status, "moved").anyNumberOfTimes();
        server.expect("GET", "/new").answer(200, "here");
        std::vector<int> reports;
        const auto response = await(session.data(request("GET", QString::fromLatin1(place)),
                                                 [&](const auto &soFar) { reports.push_back(soFar.status); }));
        EXPECT_EQ(response.status, 200) << status;
        EXPECT_EQ(response.body, "here") << status;
        EXPECT_THAT(reports, testing::Each(200)) << "the redirection is no answer";
    }
}

TEST_F(URLSessionTest, aQuestionIsNotRepeatedEither) {
    auto &cut = server.expect("GET", "/cut").raw("HTTP/1.1 200 OK\r\nContent-Length: 60\r\n\r\nabcdef").closing();
    EXPECT_EQ(failureCode(session.data(request("GET", u"/cut"_s))), URLError::Code::connectionLost);
    auto &dropped = server.expect("GET", "/dropped").closing();
    EXPECT_EQ(failureCode(session.data(request("GET", u"/dropped"_s))), URLError::Code::connectionLost);
    server.assertSilence();
    EXPECT_EQ(cut.arrivals() + dropped.arrivals(), 2);
}

TEST_F(URLSessionTest, givesUpOnEndlessRedirects) {
    server.expect("GET", "/loop").header("Location", "/loop").answer(302).anyNumberOfTimes();
    EXPECT_NE(failureOf(session.data(request("GET", u"/loop"_s))), QString());
}

TEST_F(URLSessionTest, aMovedCommandIsNotRepeatedElsewhere) {
    for (const int status : {307, 308}) {
        server.expect("POST", "/old").header("Location", "/new").answer(status);
        EXPECT_EQ(failureCode(session.data(request("POST", u"/old"_s, "content"))), URLError::Code::connectionLost);
        server.assertSilence();
    }
}
