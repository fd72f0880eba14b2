#include "net/APIClient.h"

#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class APIClientResponseTest : public CoreTest {
protected:
    APIClientResponseTest() { server.makeCurrent(); }

    std::optional<APIError> apiErrorOf(QCoro::Task<> task) {
        try {
            await(std::move(task));
        } catch (const APIError &error) {
            return error;
        }
        return std::nullopt;
    }

    FakeServer server;
    APIClient &client = APIClient::shared();
};

struct Judgement {
    int status;
    QByteArray body;
    std::optional<APIError> error;
};

const auto requestFailed = [](int status) { return APIError::serverError(u"Request failed (%1)"_s.arg(status)); };

const Judgement judgements[] = {
    {200, "{}", {}},
    {200, "no JSON", {}},
    {201, "", {}},
    {204, "", {}},
    {299, "{\"message\":\"fine\"}", {}},
    {401, "", APIError::unauthorized()},
    {401, "{\"message\":\"Wrong password\"}", APIError::unauthorized()},
    {400, "{\"message\":\"Bad name\"}", APIError::serverError(u"Bad name"_s)},
    {400, "{\"error\":\"Bad thing\"}", APIError::serverError(u"Bad thing"_s)},
    {500, "{\"error\":\"second\",\"message\":\"first\"}", APIError::serverError(u"first"_s)},
    {500, "{\"message\":5,\"error\":\"not this\"}", requestFailed(500)},
    {500, "{\"message\":null,\"error\":\"not this\"}", requestFailed(500)},
    {500, "{\"message\":{\"text\":\"x\"}}", requestFailed(500)},
    {500, "{\"error\":[\"x\"]}", requestFailed(500)},
    {500, "{\"message\":\"\"}", APIError::serverError(u""_s)},
    {500, "{\"message\":\"\\u00dcber \\ud83d\\ude00\"}", APIError::serverError(u"Über 😀"_s)},
    {500, "{}", requestFailed(500)},
    {502, "[{\"message\":\"in a list\"}]", requestFailed(502)},
    {503, "{\"message\":\"cut", requestFailed(503)},
    {404, "<html>message</html>", requestFailed(404)},
    {403, "", requestFailed(403)},
    {304, "", requestFailed(304)},
    {599, "\"message\"", requestFailed(599)},
};

} // namespace

TEST_F(APIClientResponseTest, judgesStatusAndBody) {
    for (const auto &row : judgements) {
        server.expect("POST", "/x").json(row.body, row.status);
        EXPECT_EQ(apiErrorOf(client.postVoid(u"x"_s)), row.error) << row.status << ' ' << row.body.toStdString();
        server.expect("DELETE", "/x").answer(row.status, row.body, "text/html");
        EXPECT_EQ(apiErrorOf(client.delete_(u"x"_s)), row.error) << row.status << ' ' << row.body.toStdString();
    }
}

TEST_F(APIClientResponseTest, rawFormsKnowOneFailureOnly) {
    for (const auto &row : judgements) {
        server.expect("GET", "/x").json(row.body, row.status);
        const auto expected = row.status / 100 == 2 ? QString() : u"Download failed"_s;
        EXPECT_EQ(failureOf(client.getData(u"x"_s)), expected) << row.status;
    }
}

TEST_F(APIClientResponseTest, decodedFormsNeedJSON) {
    for (const QByteArray body : {"", "no JSON", "{\"connected\":", "{\"connected\":1}", "[]"}) {
        server.expect("GET", "/x").json(body, body.isEmpty() ? 204 : 200);
        EXPECT_THROW(await(client.get<ChatGPTSubscriptionStatus>(u"x"_s)), DecodingError) << body.toStdString();
    }
}

TEST_F(APIClientResponseTest, whatIsNotHTTPIsAnInvalidResponseOrALostConnection) {
    server.expect("POST", "/x").raw("220 mail ESMTP\r\n\r\n").closing();
    EXPECT_THAT((QStringList{u"Invalid server response"_s, u"The network connection was lost."_s}),
                testing::Contains(failureOf(client.postVoid(u"x"_s))));
}

namespace {

struct Report {
    qint64 received, total;
    double fraction;

    bool operator==(const Report &) const = default;
};

void PrintTo(const Report &report, std::ostream *stream) {
    *stream << report.received << " of " << report.total << ", " << report.fraction;
}

class DownloadTest : public APIClientResponseTest {
protected:
    QCoro::Task<QByteArray> download() {
        return client.download(u"file"_s, {}, [this](qint64 received, qint64 total, double fraction) {
            EXPECT_EQ(QThread::currentThread(), qApp->thread());
            reports.push_back({received, total, fraction});
        });
    }

    bool hasReports(size_t count) {
        return spinUntil([=, this] { return reports.size() == count; });
    }

    ManualClock clock;
    std::vector<Report> reports;
};

} // namespace

TEST_F(DownloadTest, reportsAtMostEveryFiftyMilliseconds) {
    auto &exchange = server.expect("GET", "/file").held();
    auto task = download();
    exchange.sendHead(200, "application/pdf", "Content-Length: 100\r\n");
    ASSERT_TRUE(hasReports(1));
    clock.advance(50ms);
    exchange.send(QByteArray(10, 'a'));
    server.assertSilence();
    clock.advance(1ms);
    exchange.send(QByteArray(15, 'b'));
    ASSERT_TRUE(hasReports(2));
    exchange.send(QByteArray(75, 'c'));
    EXPECT_EQ(await(std::move(task)).size(), 100);
    EXPECT_EQ(reports, (std::vector<Report>{{0, 100, 0.0}, {25, 100, 0.25}, {100, 100, 1.0}}));
}

TEST_F(DownloadTest, withoutALengthTheFractionStaysZeroToTheEnd) {
    auto &exchange = server.expect("GET", "/file").held();
    auto task = download();
    exchange.sendHead(200, "application/pdf");
    ASSERT_TRUE(hasReports(1));
    clock.advance(51ms);
    exchange.send("abc");
    ASSERT_TRUE(hasReports(2));
    exchange.close();
    EXPECT_EQ(await(std::move(task)), "abc");
    EXPECT_EQ(reports, (std::vector<Report>{{0, -1, 0.0}, {3, -1, 0.0}, {3, 3, 1.0}}));
}

TEST_F(DownloadTest, anEmptyFileIsReportedAtBothEnds) {
    server.expect("GET", "/file").answer(200);
    EXPECT_EQ(await(download()), "");
    EXPECT_EQ(reports, (std::vector<Report>{{0, 0, 0.0}, {0, 0, 1.0}}));
}

TEST_F(DownloadTest, aRefusedOneReportsNothing) {
    server.expect("GET", "/file").json("{\"message\":\"no\"}", 401);
    EXPECT_EQ(failureOf(download()), u"Download failed"_s);
    EXPECT_EQ(reports, std::vector<Report>());
}

TEST_F(DownloadTest, oneThatBreaksOffFails) {
    server.expect("GET", "/file").raw("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nabc").closing();
    EXPECT_EQ(failureOf(download()), u"The network connection was lost."_s);
}
