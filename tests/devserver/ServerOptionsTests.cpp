#include "ServerTest.h"

#include "ServerOptions.h"

namespace {

class ServerOptionsTest : public ServerTest {};

TEST_F(ServerOptionsTest, TLSUsesACertificateForThisHostAndMarksTheCookieSecure) {
    start({"--tls"});
    EXPECT_EQ(m_server->address().rfind("https://127.0.0.1:", 0), 0U);
    const auto answer = post("api/auth/login", R"({"username":"demo","password":"corvanite"})");
    ASSERT_TRUE(answer);
    EXPECT_NE(answer->get_header_value("Set-Cookie").find("; Secure"), std::string::npos);

    EXPECT_FALSE(httplib::Client(m_server->address()).Get("/api/auth/registration-status"));
    const auto certificate = m_folder.path() / "state/tls/certificate.pem";
    httplib::Client trusting(m_server->address());
    trusting.set_ca_cert_path(certificate.c_str());
    ASSERT_TRUE(trusting.Get("/api/auth/registration-status"));
    EXPECT_EQ(std::filesystem::status(m_folder.path() / "state/tls/key.pem").permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST_F(ServerOptionsTest, FailuresAreServedWhereThePatternMatches) {
    start({"--fail", "api/emails/*=503", "--fail", "api/folders=418"});
    signIn();
    EXPECT_EQ(get("api/emails/list?folder=INBOX")->status, 503);
    EXPECT_EQ(get("api/emails/read/1?folder=INBOX")->body, R"({"message":"This failure was asked for"})");
    EXPECT_EQ(get("api/folders")->status, 418);
    EXPECT_EQ(get("api/folders/cached")->status, 200);
}

TEST_F(ServerOptionsTest, WhatIsNoMaildirIsNotServed) {
    std::filesystem::remove_all(m_maildir / "cur");
    EXPECT_THROW(start(), std::runtime_error);
}

TEST_F(ServerOptionsTest, UnknownMethodsAndPathsAreTold) {
    start();
    signIn();
    EXPECT_EQ(get("api/auth/login")->status, 405);
    EXPECT_EQ(get("api/nowhere")->status, 404);
    EXPECT_EQ(get("")->status, 404);
    EXPECT_EQ(get("api/a%0Ab")->body, R"({"message":"No such endpoint"})");
    EXPECT_EQ(m_client->Delete("/api/folders", {{"Cookie", m_cookie}})->status, 405);
}

TEST(OptionParsingTest, WrongArgumentsAreNamed) {
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases{
        {{"--prot", "1"}, "unknown option \"--prot\""},
        {{"--port"}, "--port needs a value"},
        {{"--port", "80x"}, "--port needs a number, not \"80x\""},
        {{"--latency", "-5"}, "--latency needs a number, not \"-5\""},
        {{"--account", "name"}, "--account cannot read \"name\""},
        {{"--attachment", "25"}, "--attachment needs --fill before it"},
        {{"--fail", "api=x"}, "--fail needs a number, not \"x\""},
    };
    for (const auto &[arguments, message] : cases) {
        try {
            parseServerOptions(arguments);
            ADD_FAILURE() << message;
        } catch (const std::runtime_error &error) {
            EXPECT_EQ(error.what(), message);
        }
    }
}

} // namespace
