#include "net/APIClient.h"

#include "platform/AtomicFileWriter.h"
#include "platform/HTTPCookieStorage.h"
#include "platform/StandardPaths.h"
#include "platform/UserDefaults.h"
#include "support/CoreTest.h"
#include "support/FakeServer.h"

#include <QFile>
#include <QNetworkCookie>

using namespace Qt::StringLiterals;

namespace {

class AuthCookiesTest : public CoreTest {
protected:
    AuthCookiesTest() { server.makeCurrent(); }

    /// Lets the server set cookies in one answer.
    void receive(const QByteArrayList &cookies) {
        auto &exchange = server.expect("GET", "/login");
        for (const auto &cookie : cookies)
            exchange.header("Set-Cookie", cookie);
        exchange.answer(200);
        await(client.getData(u"login"_s));
    }

    std::optional<QByteArray> sentCookies(const QByteArray &path = "/next") {
        auto &exchange = server.expect("GET", path).answer(200);
        await(client.getData(QString::fromLatin1(path.sliced(1))));
        return exchange.request().header("cookie");
    }

    UserDefaults &mirror() { return *UserDefaults::suite(applicationGroupName()); }

    QByteArray mirroredCookies() {
        await(client.syncAuthCookies());
        return mirror().bytes(u"auth_cookies"_s).value_or("absent");
    }

    FakeServer server;
    APIClient &client = APIClient::shared();
};

} // namespace

TEST_F(AuthCookiesTest, cookiesThatTheServerSetAreSentBack) {
    EXPECT_EQ(sentCookies(), std::nullopt);
    receive({"session=s%3Aabc.d+e/f=; Path=/; HttpOnly; SameSite=Lax", "other=2"});
    EXPECT_EQ(sentCookies(), "session=s%3Aabc.d+e/f=; other=2");
    receive({"other=gone; Max-Age=0"});
    EXPECT_EQ(sentCookies(), "session=s%3Aabc.d+e/f=");
}

TEST_F(AuthCookiesTest, cookiesKeepToTheirPathAndToSecureConnections) {
    receive({"narrow=1; Path=/api", "safe=1; Secure", "wide=1; Path=/"});
    EXPECT_EQ(sentCookies("/other"), "wide=1");
    EXPECT_EQ(sentCookies("/api/x"), "narrow=1; wide=1");
}

TEST_F(AuthCookiesTest, anAnswerThatFailsSetsItsCookiesToo) {
    server.expect("GET", "/login").header("Set-Cookie", "a=1").json("{}", 401);
    EXPECT_NE(failureOf(client.getData(u"login"_s)), QString());
    EXPECT_EQ(sentCookies(), "a=1");
}

TEST_F(AuthCookiesTest, theMirrorHoldsTheCookiesOfTheServer) {
    receive({"session=abc; Path=/; HttpOnly", "kept=x%20y; Expires=Fri, 01 Jan 2100 00:00:00 GMT"});
    EXPECT_EQ(mirroredCookies(),
              "[{\"domain\":\"127.0.0.1\",\"name\":\"session\",\"path\":\"/\",\"value\":\"abc\"},"
              "{\"domain\":\"127.0.0.1\",\"expires\":\"4102444800.000\",\"name\":\"kept\",\"path\":\"/\","
              "\"value\":\"x%20y\"}]");
    EXPECT_EQ(mirror().text(u"auth_server_url"_s), server.address());
}

TEST_F(AuthCookiesTest, theMirrorTellsASecureCookieAndItsDomain) {
    UserDefaults::standard().set(u"serverURL"_s, u"https://mail.example.org"_s);
    HTTPCookieStorage::shared().setCookies(
        QNetworkCookie::parseCookies("session=1; Secure; Domain=example.org; Path=/"),
        QUrl(u"https://mail.example.org"_s));
    EXPECT_EQ(mirroredCookies(), "[{\"domain\":\".example.org\",\"name\":\"session\",\"path\":\"/\",\"secure\":\"1\","
                                 "\"value\":\"1\"}]");
}

TEST_F(AuthCookiesTest, withoutCookiesTheMirrorIsAnEmptyList) {
    EXPECT_EQ(mirroredCookies(), "[]");
    UserDefaults::standard().set(u"serverURL"_s, u"http://no host"_s);
    EXPECT_EQ(mirroredCookies(), "[]");
    EXPECT_EQ(mirror().text(u"auth_server_url"_s), u"http://no host"_s);
}

TEST_F(AuthCookiesTest, clearingTakesTheCookiesOfThisServerOnly) {
    const QUrl elsewhere(u"http://elsewhere.example/"_s);
    HTTPCookieStorage::shared().setCookies({QNetworkCookie("theirs", "1")}, elsewhere);
    receive({"session=1; Path=/"});
    client.clearCookies();
    EXPECT_EQ(sentCookies(), std::nullopt);
    EXPECT_EQ(HTTPCookieStorage::shared().cookies(elsewhere).size(), 1);
}

TEST_F(AuthCookiesTest, clearingTheMirrorRemovesBothItems) {
    mirroredCookies();
    mirror().set(u"widget_unread_count"_s, 3);
    client.clearAuthMirror();
    EXPECT_FALSE(mirror().contains(u"auth_cookies"_s));
    EXPECT_FALSE(mirror().contains(u"auth_server_url"_s));
    EXPECT_EQ(mirror().integer(u"widget_unread_count"_s), 3);
}

TEST_F(AuthCookiesTest, theMirrorIsForItsOwnerOnly) {
    receive({"session=secret"});
    mirroredCookies();
    AtomicFileWriter::shared().flush();
    const auto folder = TestHome::dataHome() + u'/' + applicationGroupName();
    const auto owner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    EXPECT_EQ(QFile::permissions(folder + u"/defaults.json"_s), owner);
    EXPECT_EQ(QFile::permissions(dataFolder() + u"/cookies.txt"_s), owner);
}
