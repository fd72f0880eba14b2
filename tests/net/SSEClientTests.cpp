#include "net/SSEClient.h"

#include "platform/HTTPCookieStorage.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QJsonDocument>
#include <QNetworkCookie>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class SSEClientTest : public CoreTest {
protected:
    SSEClientTest() {
        server.makeCurrent();
        client.onEvent = [this](const QString &name, const QJsonObject &data) {
            events.append(name + u' ' + QString::fromUtf8(QJsonDocument(data).toJson(QJsonDocument::Compact)));
        };
    }

    FakeExchange &expectConnection() { return server.expect("GET", "/api/events").held(); }

    /// A connection that streams.
    FakeExchange &connected() {
        auto &exchange = expectConnection();
        client.connect(server.address());
        stream(exchange);
        return exchange;
    }

    void stream(FakeExchange &exchange) {
        exchange.startEventStream();
        EXPECT_TRUE(spinUntil([this] { return client.isConnected.get(); }));
    }

    bool waitsToReconnect() {
        return spinUntil([this] { return clock.scheduledCount() == 1; });
    }

    void expectDelay(Clock::Duration base) {
        ASSERT_TRUE(waitsToReconnect());
        EXPECT_GE(*clock.nextDue(), base);
        EXPECT_LE(*clock.nextDue(), base + 1s);
    }

    /// Lets the waiting time run out; the connection comes at its end and not before.
    FakeExchange &reconnect() {
        clock.advance(*clock.nextDue() - 1ms);
        EXPECT_EQ(clock.scheduledCount(), 1);
        auto &exchange = expectConnection();
        clock.advance(1ms);
        EXPECT_EQ(clock.scheduledCount(), 0);
        exchange.request();
        return exchange;
    }

    bool hasEvents(const QStringList &expected) {
        return spinUntil([&] { return events == expected; });
    }

    ManualClock clock;
    FakeServer server;
    QStringList events;
    SSEClient client;
};

} // namespace

TEST_F(SSEClientTest, asksForAStreamWithItsCookies) {
    HTTPCookieStorage::shared().setCookies({QNetworkCookie("session", "s1")}, QUrl(server.address()));
    const auto &request = connected().request();
    EXPECT_EQ(request.header("accept"), "text/event-stream");
    EXPECT_EQ(request.header("cache-control"), "no-cache");
    EXPECT_EQ(request.header("cookie"), "session=s1");
    EXPECT_EQ(clock.scheduledCount(), 0) << "a stream has no time-out";
}

TEST_F(SSEClientTest, deliversEventsInTheirOrderAndDropsWhatIsNone) {
    auto &stream = connected();
    QStringList expected;
    for (int number = 0; number < 200; ++number) {
        // Great and small ones in turn: the order must not depend on how long one takes to parse.
        const QByteArray filler(number % 2 ? 0 : 20000, 'x');
        const auto json = "{\"f\":\"" + filler + "\",\"n\":" + QByteArray::number(number) + "}";
        stream.pushEvent("mail", json);
        stream.pushEvent("list", "[1]");
        stream.pushEvent("text", "\"x\"");
        stream.pushEvent("broken", "{\"a\":");
        stream.send(": keep-alive\n\ndata: {}\n\nevent: none\n\n");
        expected.append(u"mail "_s + QString::fromUtf8(json));
    }
    EXPECT_TRUE(hasEvents(expected));
}

TEST_F(SSEClientTest, keepsACharacterThatIsCutBetweenChunks) {
    auto &stream = connected();
    stream.send("event: mail\r\ndata: {\"name\":\"J\xc3");
    server.expect("GET", "/silence-between").answer(200);
    URLSession session(nullptr);
    await(session.data({.url = QUrl(server.address() + u"/silence-between"_s)}));
    stream.send("\xb6rg\"}\r\n\r\n");
    EXPECT_TRUE(hasEvents({u"mail {\"name\":\"J\u00f6rg\"}"_s}));
}

TEST_F(SSEClientTest, anEventWithoutReceiverDoesNoHarm) {
    auto &stream = connected();
    const auto receiver = client.onEvent;
    client.onEvent = [&](const QString &name, const QJsonObject &) {
        events.append(name);
        QMetaObject::invokeMethod(
            &client, [&] { client.onEvent = {}; }, Qt::QueuedConnection);
    };
    stream.pushEvent("first", "{}");
    EXPECT_TRUE(spinUntil([this] { return !client.onEvent; }));
    stream.pushEvent("lost", "{}");
    stream.close();
    ASSERT_TRUE(waitsToReconnect());
    SSEClientTest::stream(reconnect());
    client.disconnect();
    client.onEvent = receiver;
    connected().pushEvent("kept", "{}");
    EXPECT_TRUE(spinUntil([this] { return events.last() == u"kept {}"_s; }));
}

TEST_F(SSEClientTest, backsOffFurtherWithEachFailure) {
    auto *exchange = &expectConnection();
    client.connect(server.address());
    for (const auto delay : {5s, 10s, 20s, 40s, 60s, 60s, 60s, 60s, 60s, 60s}) {
        exchange->close();
        expectDelay(delay);
        exchange = &reconnect();
    }
    stream(*exchange);
    exchange->close();
    expectDelay(5s);
}

TEST_F(SSEClientTest, answersThatAreNoStreamCountAsFailures) {
    const std::vector<QByteArray> answers{
        "HTTP/1.1 401 No\r\nContent-Type: application/json\r\nContent-Length: 2\r\n\r\n{}",
        "HTTP/1.1 500 No\r\nContent-Type: text/event-stream\r\nContent-Length: 0\r\n\r\n",
        "HTTP/1.1 204 None\r\nContent-Type: text/event-stream\r\n\r\n",
        "HTTP/1.1 200 OK\r\nContent-Type: text/html\r\nContent-Length: 4\r\n\r\nhtml",
        "HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n",
    };
    auto *exchange = &expectConnection();
    client.connect(server.address());
    auto delay = 5s;
    for (const auto &answer : answers) {
        exchange->send(answer);
        expectDelay(std::min(delay, 60s));
        EXPECT_FALSE(client.isConnected) << answer.toStdString();
        delay *= 2;
        exchange = &reconnect();
    }
}

TEST_F(SSEClientTest, theMediaTypeIsReadWithoutParametersAndCase) {
    auto &exchange = expectConnection();
    client.connect(server.address());
    exchange.sendHead(200, "Text/Event-Stream; charset=utf-8");
    EXPECT_TRUE(spinUntil([this] { return client.isConnected.get(); }));
}

TEST_F(SSEClientTest, returnsToAServerThatVanished) {
    connected();
    server.vanish();
    expectDelay(5s);
    EXPECT_TRUE(spinUntil([this] { return !client.isConnected; }));
    clock.advance(*clock.nextDue());
    expectDelay(10s);
    server.returnAgain();
    stream(reconnect());
}

TEST_F(SSEClientTest, disconnectEndsAStream) {
    auto &stream = connected();
    client.disconnect();
    EXPECT_FALSE(client.isConnected);
    EXPECT_TRUE(spinUntil([&] { return stream.isClosed(); }));
    EXPECT_EQ(clock.scheduledCount(), 0);
}

TEST_F(SSEClientTest, disconnectCancelsTheReconnection) {
    connected().close();
    ASSERT_TRUE(waitsToReconnect());
    client.disconnect();
    EXPECT_EQ(clock.scheduledCount(), 0);
    clock.advance(1h);
    server.assertSilence();
}

TEST_F(SSEClientTest, connectDropsTheConnectionThatStands) {
    auto &old = connected();
    auto &next = expectConnection();
    client.connect(server.address());
    EXPECT_FALSE(client.isConnected);
    EXPECT_TRUE(spinUntil([&] { return old.isClosed(); }));
    stream(next);
    EXPECT_EQ(clock.scheduledCount(), 0) << "the end of a dropped connection leads to no reconnection";
}

TEST_F(SSEClientTest, connectLeavesTheBackOffAsItIs) {
    auto &first = expectConnection();
    client.connect(server.address());
    first.close();
    expectDelay(5s);
    auto &second = expectConnection();
    client.connect(server.address());
    EXPECT_EQ(clock.scheduledCount(), 0);
    second.close();
    expectDelay(10s);
}

TEST_F(SSEClientTest, halfAnEventOfALostConnectionIsForgotten) {
    auto &stream = connected();
    stream.send("event: mail\ndata: {\"half\":");
    stream.close();
    ASSERT_TRUE(waitsToReconnect());
    auto &next = reconnect();
    SSEClientTest::stream(next);
    next.send("1}\n\n");
    next.pushEvent("whole", "{}");
    EXPECT_TRUE(hasEvents({u"whole {}"_s}));
}

TEST_F(SSEClientTest, aReconnectionGoesToTheAddressThatIsStoredThen) {
    FakeServer other;
    connected().request();
    other.makeCurrent();
    server.closeConnections();
    ASSERT_TRUE(waitsToReconnect());
    auto &exchange = other.expect("GET", "/api/events").held();
    clock.advance(6s);
    exchange.request();
    client.disconnect();
}

TEST_F(SSEClientTest, withoutAStoredAddressItDoesNotReconnect) {
    for (const auto &stored : {std::optional<QString>(), std::optional(u""_s)}) {
        auto &exchange = connected();
        UserDefaults::standard().remove(u"serverURL"_s);
        if (stored)
            UserDefaults::standard().set(u"serverURL"_s, *stored);
        exchange.close();
        EXPECT_TRUE(spinUntil([this] { return !client.isConnected; }));
        deliverQueuedEvents();
        EXPECT_EQ(clock.scheduledCount(), 0);
    }
}

TEST_F(SSEClientTest, anAddressThatDoesNotParseIsLeftAlone) {
    connected();
    client.connect(u"http://no host"_s);
    EXPECT_FALSE(client.isConnected);
    clock.advance(1h);
    server.assertSilence();
}

TEST_F(SSEClientTest, tellsItsObserversOfEachChangeOnce) {
    std::vector<bool> seen;
    QObject::connect(&client, &ObservableObject::changed, &client, [&] { seen.push_back(client.isConnected); });
    connected().close();
    ASSERT_TRUE(waitsToReconnect());
    EXPECT_TRUE(spinUntil([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen, (std::vector<bool>{true, false}));
}

TEST_F(SSEClientTest, mayBeDestroyedWhileEventsAreOnTheirWay) {
    auto other = std::make_unique<SSEClient>();
    auto &exchange = expectConnection();
    other->connect(server.address());
    exchange.startEventStream();
    exchange.pushEvent("mail", "{\"f\":\"" + QByteArray(1 << 20, 'x') + "\"}");
    EXPECT_TRUE(spinUntil([&] { return other->isConnected.get(); }));
    other.reset();
    EXPECT_TRUE(spinUntil([&] { return exchange.isClosed(); }));
}
