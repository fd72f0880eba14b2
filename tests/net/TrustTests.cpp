#include "net/APIClient.h"

#include "net/SSEClient.h"
#include "net/TrustManager.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QTcpServer>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

class TrustTest : public CoreTest {
protected:
    TrustTest() { server.makeCurrent(); }

    void trustSelfSigned(const QJsonValue &value) { UserDefaults::standard().set(u"trustSelfSigned"_s, value); }

    FakeServer server{FakeServer::Security::selfSigned};
    APIClient &client = APIClient::shared();
};

} // namespace

TEST_F(TrustTest, aSelfSignedServerIsRefusedWithATextThatSaysWhy) {
    const auto text = failureOf(client.getData(u"x"_s));
    EXPECT_TRUE(text.startsWith(u"The certificate of the server \"127.0.0.1\" is not trusted."_s)) << qPrintable(text);
    server.vanish();
}

TEST_F(TrustTest, aServerWithoutEncryptionIsExplained) {
    QTcpServer plain;
    plain.listen(QHostAddress::LocalHost);
    QObject::connect(&plain, &QTcpServer::newConnection, &plain, [&] {
        auto *connection = plain.nextPendingConnection();
        connection->write("HTTP/1.1 400 Bad Request\r\nConnection: close\r\n\r\n");
        connection->disconnectFromHost();
    });
    client.setServerURL(u"https://127.0.0.1:%1"_s.arg(plain.serverPort()));
    EXPECT_EQ(
        failureOf(client.getData(u"x"_s)),
        u"The server \"127.0.0.1\" does not answer securely. If it is meant to be reached without encryption, its "
        "address begins with http:// instead of https://."_s);
}

TEST_F(TrustTest, aSelfSignedServerIsTrustedWhileTheSettingSaysSo) {
    trustSelfSigned(true);
    server.expect("POST", "/x").json("{\"plan\":\"plus\"}");
    EXPECT_EQ(await(client.post<ChatGPTSubscriptionStatus>(u"x"_s, JSONValue{JSONValue::Object()})).plan, u"plus"_s);
}

TEST_F(TrustTest, theEventStreamFollowsTheSameRule) {
    ManualClock clock;
    SSEClient stream;
    stream.connect(server.address());
    EXPECT_TRUE(spinUntil([&] { return clock.scheduledCount() == 1; })) << "a refused server is tried again";
    trustSelfSigned(true);
    auto &exchange = server.expect("GET", "/api/events").held();
    clock.advance(*clock.nextDue());
    exchange.startEventStream();
    EXPECT_TRUE(spinUntil([&] { return stream.isConnected.get(); }));
}

TEST_F(TrustTest, onlyTrueTrustsAndOnlyACertificate) {
    using Method = AuthenticationChallenge::Method;
    const AuthenticationChallenge certificate{u"host"_s, Method::serverTrust, true};
    const std::vector<std::pair<QJsonValue, bool>> table{{true, true}, {false, false}, {1, false}, {u"true"_s, false}};
    for (const auto &[value, trusted] : table) {
        trustSelfSigned(value);
        EXPECT_EQ(TrustManager::shared().handle(certificate) == ChallengeDisposition::useCredential, trusted);
    }
    trustSelfSigned(true);
    for (const auto &other : {AuthenticationChallenge{u"host"_s, Method::other, true},
                              AuthenticationChallenge{u"host"_s, Method::serverTrust, false}})
        EXPECT_EQ(TrustManager::shared().handle(other), ChallengeDisposition::performDefaultHandling);
}
