#include "ServerTest.h"

#include "storage/SQLiteDatabase.h"

namespace {

using AuthTest = ServerTest;

TEST_F(AuthTest, EveryEndpointButSignInAsksForASession) {
    start();
    for (const char *path : {"auth/me", "folders", "folders/cached", "emails/list?folder=INBOX",
                             "emails/read/1?folder=INBOX", "events", "jobs/list", "chat/unread", "no/such/endpoint"}) {
        const auto answer = get(std::string("api/") + path);
        ASSERT_TRUE(answer) << path;
        EXPECT_EQ(answer->status, 401) << path;
        EXPECT_EQ(answer->body, R"({"message":"Not signed in"})") << path;
        EXPECT_EQ(answer->get_header_value("Content-Type"), "application/json; charset=utf-8");
    }
    EXPECT_EQ(get("api/auth/registration-status")->body, R"({"allowed":true})");
}

TEST_F(AuthTest, SignInSetsACookieThatScriptsCannotReadAndSignOutEndsIt) {
    start();
    const auto answer = post("api/auth/login", R"({"username":"demo","password":"corvanite"})");
    ASSERT_EQ(answer->status, 200);
    const auto cookie = answer->get_header_value("Set-Cookie");
    const auto attributes = cookie.substr(cookie.find(';'));
    EXPECT_EQ(attributes, "; Path=/; HttpOnly; SameSite=Lax; Max-Age=2592000");
    m_cookie = cookie.substr(0, cookie.find(';'));
    const auto user = getJSON("api/auth/me").at("user");
    EXPECT_EQ(user.at("username"), "demo");
    EXPECT_EQ(user.at("email"), "dana@corvanite.example");
    EXPECT_EQ(user.at("full_name"), "Dana Okafor");
    EXPECT_EQ(user.at("folder_mapping").at("spam"), "Junk");
    EXPECT_EQ(user.at("emails_per_page"), 50);
    EXPECT_EQ(postStatus("api/auth/logout", ""), 200);
    EXPECT_EQ(get("api/auth/me")->status, 401);
}

TEST_F(AuthTest, SignInTakesTheMailAddressAndRefusesWrongPasswordsAndBodies) {
    start();
    const struct {
        const char *body;
        int status;
    } cases[] = {
        {R"({"username":"dana@corvanite.example","password":"corvanite"})", 200},
        {R"({"username":"DEMO","password":"corvanite"})", 200},
        {R"({"username":"demo","password":"Corvanite"})", 401},
        {R"({"username":"nobody","password":"corvanite"})", 401},
        {R"({"username":"demo","password":7})", 400},
        {R"({"username":"demo"})", 400},
        {R"(["demo","corvanite"])", 400},
        {R"({"username":)", 400},
        {R"({"username":"' OR 1=1 --","password":"x"})", 401},
    };
    for (const auto &[body, status] : cases)
        EXPECT_EQ(postStatus("api/auth/login", body), status) << body;
}

TEST_F(AuthTest, ASessionOutlivesARestartButNotItsExpiry) {
    start();
    signIn();
    start();
    EXPECT_EQ(get("api/auth/me")->status, 200);
    SQLiteDatabase(m_folder.path() / "state/accounts.sqlite").execute("UPDATE session SET expires = 1");
    EXPECT_EQ(get("api/auth/me")->status, 401);
}

TEST_F(AuthTest, NeitherPasswordsNorTokensAreStored) {
    start();
    signIn();
    SQLiteDatabase database(m_folder.path() / "state/accounts.sqlite");
    auto hash = database.query("SELECT password_hash FROM account");
    ASSERT_TRUE(hash.step());
    EXPECT_EQ(hash.text(0).rfind("scrypt$", 0), 0U);
    auto token = database.query("SELECT token_hash FROM session");
    ASSERT_TRUE(token.step());
    EXPECT_EQ(m_cookie.find(token.text(0)), std::string::npos);
}

TEST_F(AuthTest, RegistrationMakesAnAccountWithAMailboxOfItsOwn) {
    start();
    deliverSeen(1);
    const auto answer = post("api/auth/register", R"({"username":"ines","password":"secret7","email":"ines@b.example",
        "full_name":"Ines","imap_encryption":"ssl","smtp_encryption":"tls"})");
    EXPECT_EQ(answer->status, 200);
    EXPECT_EQ(answer->body, R"({"message":"Account created"})");
    signIn("ines", "secret7");
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX").at("total"), 0);
}

TEST_F(AuthTest, RegistrationRefusesWhatCannotBeAnAccount) {
    start();
    const struct {
        const char *username, *password, *email;
        int status;
    } cases[] = {
        {"demo", "secret7", "new@b.example", 409},
        {"Demo", "secret7", "new@b.example", 409},
        {"other", "secret7", "dana@corvanite.example", 409},
        {"short", "12345", "short@b.example", 400},
        {"../../etc", "secret7", "dots@b.example", 400},
        {"a/b", "secret7", "slash@b.example", 400},
        {"..", "secret7", "up@b.example", 400},
        {"", "secret7", "none@b.example", 400},
        {"noaddress", "secret7", "nowhere", 400},
    };
    for (const auto &[username, password, email, status] : cases) {
        const nlohmann::json body{
            {"username", username}, {"password", password}, {"email", email}, {"full_name", "Somebody"}};
        EXPECT_EQ(postStatus("api/auth/register", body.dump()), status) << username;
    }
}

TEST_F(AuthTest, RegistrationCanBeSwitchedOff) {
    start({"--no-registration"});
    EXPECT_EQ(get("api/auth/registration-status")->body, R"({"allowed":false})");
    EXPECT_EQ(postStatus("api/auth/register",
                         R"({"username":"ines","password":"secret7","email":"i@b.example","full_name":"Ines"})"),
              403);
}

TEST_F(AuthTest, AccountsOfTheCommandLineSeeOnlyTheirOwnMail) {
    deliverSeen(2);
    start({"--account", "first:one:with:colons", "--account", "second:two"});
    signIn("first", "one:with:colons");
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX").at("total"), 2);
    signIn("second", "two");
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX").at("total"), 0);
    EXPECT_EQ(get("api/emails/read/1?folder=INBOX")->status, 404);
    EXPECT_EQ(postStatus("api/auth/login", R"({"username":"demo","password":"corvanite"})"), 401);
}

} // namespace
