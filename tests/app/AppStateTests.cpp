#include "app/AppStateFixture.h"

#include "notify/FakeNotificationCenter.h"
#include "platform/HTTPCookieStorage.h"
#include "platform/StandardPaths.h"

#include <QNetworkCookie>

using namespace Qt::StringLiterals;

namespace {

class Session : public CoreTest, protected AppStateFixture {
protected:
    void TearDown() override {
        state.reset();
        CoreTest::TearDown();
    }

    FakeExchange &expectMe() { return server.expect("GET", "/api/auth/me"); }
    void restoreAs(const QByteArray &userJSON) {
        expectMe().header("Set-Cookie", "session=1; Path=/").json("{\"user\": " + userJSON + "}");
        state->restoreSession();
        settle();
    }
    void signOut() {
        server.expect("POST", "/api/auth/logout").json("{}");
        await(state->signOut());
    }
    bool hasCookies() const { return !HTTPCookieStorage::shared().cookies(QUrl(server.address())).isEmpty(); }
    static bool hasMirror() { return UserDefaults::suite(applicationGroupName())->contains(u"auth_cookies"_s); }
    void expectSignedOut() const {
        EXPECT_FALSE(state->isAuthenticated || state->isLoading);
        EXPECT_EQ(state->currentUser.get(), std::nullopt);
    }
};

struct FailedRestoration {
    const char *name;
    int status;
    QByteArray body;
};

class FailedRestorations : public Session, public testing::WithParamInterface<FailedRestoration> {};

const FailedRestoration failedRestorations[] = {
    {"Unauthorized", 401, R"({"error": "no session"})"},
    {"ServerError", 500, ""},
    {"BadJSON", 200, "<html>"},
    {"NoUser", 200, R"({"account": {}})"},
};

} // namespace

TEST_F(Session, IsRestored) {
    EXPECT_TRUE(state->isLoading);
    restoreAs(R"({"_id": "u1", "username": "anna", "theme": "dracula"})");
    EXPECT_TRUE(state->isAuthenticated);
    EXPECT_FALSE(state->isLoading);
    EXPECT_EQ(state->currentUser.get()->username, u"anna"_s);
    EXPECT_EQ(state->themeManager.currentThemeId(), u"dracula"_s);
    EXPECT_EQ(stream.request().header("accept"), "text/event-stream");
    EXPECT_EQ(mailCheck.arrivals(), 1);
    EXPECT_TRUE(hasMirror());
}

TEST_F(Session, IsRestoredOnce) {
    expectMe().json(R"({"user": {"username": "anna"}})");
    state->restoreSession();
    state->restoreSession();
    settle();
    state->restoreSession();
    server.assertSilence();
    stream.request();
}

TEST_F(Session, IsRestoredFromAnAddressWithASlash) {
    UserDefaults::standard().set(u"serverURL"_s, server.address() + u'/');
    state = std::make_shared<AppState>();
    restoreAs(R"({"username": "anna"})");
    stream.request();
    EXPECT_EQ(*state->serverURL, server.address());
}

TEST_P(FailedRestorations, LeadToTheSignInScreen) {
    expectMe().answer(GetParam().status, GetParam().body, "application/json");
    state->restoreSession();
    settle();
    expectSignedOut();
    server.assertSilence();
    EXPECT_FALSE(stream.hasArrived());
    EXPECT_EQ(UserDefaults::standard().text(u"serverURL"_s), server.address());
}

INSTANTIATE_TEST_SUITE_P(, FailedRestorations, testing::ValuesIn(failedRestorations), rowName);

TEST_F(Session, LeadsToTheSignInScreenWithoutANetwork) {
    server.vanish();
    state->restoreSession();
    settle();
    expectSignedOut();
}

TEST_F(Session, AsksNobodyWithoutAnAddress) {
    UserDefaults::standard().set(u"serverURL"_s, QString());
    state = std::make_shared<AppState>();
    state->restoreSession();
    expectSignedOut();
    server.assertSilence();
    EXPECT_EQ(UserDefaults::standard().text(u"serverURL"_s), QString());
}

TEST_F(Session, BeginsWithSigningIn) {
    state->isLoading = false;
    beginSession(R"({"_id": "u1", "username": "anna", "theme": "dracula"})");
    EXPECT_TRUE(state->isAuthenticated);
    EXPECT_EQ(state->currentUser.get()->username, u"anna"_s);
    EXPECT_EQ(state->themeManager.currentThemeId(), u"dracula"_s);
    EXPECT_EQ(mailCheck.arrivals(), 1);
    EXPECT_TRUE(hasMirror());
}

TEST_F(Session, KeepsTheThemeOfAnAccountThatHasNone) {
    state->themeManager.setCurrentThemeId(u"nord"_s);
    beginSession();
    EXPECT_EQ(state->themeManager.currentThemeId(), u"nord"_s);
}

TEST_F(Session, EndsWithSigningOut) {
    FakeNotificationCenter center;
    restoreAs(R"({"_id": "u1", "username": "anna", "theme": "dracula"})");
    ASSERT_TRUE(hasCookies());
    stream.request();
    NotificationRequest shown;
    shown.identifier = u"m7"_s;
    center.delivered = center.pending = {shown};
    NotificationService::shared().setBadge(5);
    UserDefaults::standard().set(u"allFoldersUnreadCount"_s, 9);
    UserDefaults::standard().set(u"notifyWhileActive"_s, true);
    const MailFolder folder{.path = u"Work"_s, .name = u"Work"_s};
    state->folders = {folder};
    state->selectedFolder = folder;
    state->selectedEmailUID = 7;
    state->navigationDestination = AppDestination::settings;

    signOut();
    expectSignedOut();
    EXPECT_FALSE(hasCookies() || hasMirror());
    EXPECT_EQ(center.present(), QStringList());
    EXPECT_EQ(UserDefaults::standard().integer(u"badgeCount"_s), 0);
    EXPECT_EQ(UserDefaults::standard().integer(u"allFoldersUnreadCount"_s), 0);
    EXPECT_EQ(*NotificationService::shared().dockBadgeLabel, QString());
    EXPECT_EQ(state->selectedFolder.get(), std::nullopt);
    EXPECT_EQ(state->selectedEmailUID.get(), std::nullopt);
    EXPECT_EQ(state->navigationDestination.get(), std::nullopt);
    EXPECT_TRUE(spinUntil([this] { return stream.isClosed(); }));

    EXPECT_EQ(state->folders->size(), 1);
    EXPECT_EQ(UserDefaults::standard().text(u"serverURL"_s), server.address());
    EXPECT_EQ(UserDefaults::standard().flag(u"notifyWhileActive"_s), true);
    EXPECT_EQ(state->themeManager.currentThemeId(), u"dracula"_s);
    state->restoreSession();
    server.assertSilence();
}

TEST_F(Session, EndsWithoutANetwork) {
    restoreAs(R"({"username": "anna"})");
    stream.request();
    server.vanish();
    for (int attempt = 1; attempt <= 2; ++attempt) {
        await(state->signOut());
        expectSignedOut();
        EXPECT_FALSE(hasCookies() || hasMirror());
    }
}

TEST_F(Session, MayBeFollowedByAnother) {
    beginSession();
    signOut();
    beginSession(R"({"_id": "u2", "username": "bert"})");
    EXPECT_EQ(state->currentUser.get()->username, u"bert"_s);
    EXPECT_TRUE(spinUntil([this] { return stream.arrivals() == 2; }));
}
