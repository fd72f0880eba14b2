#include "SendServerTest.h"

#include <arpa/inet.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using nlohmann::json;

/// Takes connections and says nothing.
class SilentServer {
public:
    SilentServer() {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        bind(m_listener, reinterpret_cast<sockaddr *>(&address), size);
        listen(m_listener, 1);
        getsockname(m_listener, reinterpret_cast<sockaddr *>(&address), &size);
        m_port = std::to_string(ntohs(address.sin_port));
    }
    ~SilentServer() { stop(); }
    SilentServer(const SilentServer &) = delete;
    SilentServer &operator=(const SilentServer &) = delete;

    const std::string &port() const { return m_port; }
    void awaitConnection() { m_connection = accept(m_listener, nullptr, nullptr); }
    void say(const std::string &line) const { ::send(m_connection, line.data(), line.size(), MSG_NOSIGNAL); }
    void stop() {
        for (int *descriptor : {&m_listener, &m_connection}) {
            if (*descriptor >= 0)
                close(*descriptor);
            *descriptor = -1;
        }
    }

private:
    int m_listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int m_connection = -1;
    std::string m_port;
};

class SMTPTest : public SendServerTest {
protected:
    void startWith(const std::string &port, const std::string &timeout = "20000") {
        m_port = port;
        start({"--smtp", "127.0.0.1:" + port, "--smtp-timeout", timeout});
        signIn();
    }

    static json mailTo(const std::string &to) {
        auto request = mail();
        request["to"] = to;
        return request;
    }

    std::string server() const { return "The mail server 127.0.0.1:" + m_port; }

    std::string m_port;
};

class RealSMTPTest : public SMTPTest {
protected:
    RealSMTPTest()
        : m_smtp({"/usr/bin/python3", DEVSERVER_TEST_FOLDER "/smtp_server.py", m_folder.path()}) {
        startWith(m_smtp.readLine());
    }

    RunningProgram m_smtp;
};

} // namespace

TEST_F(RealSMTPTest, OthersGetTheSameBytesAsThoseWhoAreHere) {
    auto request = mailTo("ilias@corvanite.example, Bob <bob@b.example>, BOB@b.example");
    request["bcc"] = "carol@c.example";
    request["body"] = "<p>.</p><p>..</p><p>. x</p>\n.\n..\n";
    sendWell(request);
    const auto taken = json::parse(m_smtp.readLine());
    EXPECT_EQ(taken.at("from"), "dana@corvanite.example");
    EXPECT_EQ(taken.at("to"), (json{"bob@b.example", "carol@c.example"}));
    const auto content = contentOf(taken.at("file"));
    EXPECT_EQ(content, contentOf(sentCopy()));
    EXPECT_EQ(content, contentOf(delivered()));
    EXPECT_EQ(content.find("carol"), std::string::npos);
}

TEST_F(RealSMTPTest, ALargeFileGoesThrough) {
    auto request = mailTo("bob@b.example");
    request["attachments"] = {{{"name", "big"}, {"type", "text/plain"}, {"data", base64(std::string(5 << 20, '.'))}}};
    sendWell(request);
    const auto taken = json::parse(m_smtp.readLine());
    EXPECT_TRUE(contentOf(taken.at("file")) == contentOf(sentCopy()));
}

TEST_F(RealSMTPTest, WhenOneRecipientIsRefusedNobodyGetsAnything) {
    EXPECT_EQ(refusal(mailTo("ilias@corvanite.example, bob@b.example, refused@b.example, refused2@b.example"), 502),
              "Nothing was sent, because the mail server refused refused@b.example (550 5.1.1 No such user here); "
              "refused2@b.example (550 5.1.1 No such user here)");
    auto request = mailTo("bob@b.example");
    request["subject"] = "after";
    sendWell(request);
    const auto taken = json::parse(m_smtp.readLine());
    EXPECT_NE(contentOf(taken.at("file")).find("Subject: after"), std::string::npos);
}

TEST_F(RealSMTPTest, ARefusedMessageIsToldInTheServersWords) {
    auto request = mailTo("ilias@corvanite.example, bob@b.example");
    request["subject"] = "spam";
    EXPECT_EQ(refusal(request, 502), "The mail server refused the message: 554 5.7.1 This looks 5.7.1 like spam");
}

TEST_F(RealSMTPTest, MailForAccountsHereNeedsNoServer) {
    m_smtp.kill();
    sendWell(mail());
    EXPECT_EQ(refusal(mailTo("bob@b.example"), 502), server() + " cannot be reached: Connection refused");
}

TEST_F(SMTPTest, AServerThatSaysNothingIsGivenUp) {
    SilentServer silent;
    startWith(silent.port(), "50");
    EXPECT_EQ(refusal(mailTo("bob@b.example"), 502), server() + " does not answer");
}

TEST_F(SMTPTest, OthersAreServedWhileOneMessageWaits) {
    SilentServer silent;
    startWith(silent.port());
    httplib::Client other(m_server->address());
    std::string text;
    std::thread sending([&] { text = refusal(mailTo("ilias@corvanite.example, bob@b.example"), 502); });
    silent.awaitConnection();
    EXPECT_EQ(other.Get("/api/emails/list?folder=INBOX", {{"Cookie", m_cookie}})->status, 200);
    silent.stop();
    sending.join();
    EXPECT_EQ(text, server() + " has ended the conversation");
}

TEST_F(SMTPTest, WhatIsNoMailServerIsTold) {
    SilentServer silent;
    startWith(silent.port());
    std::string text;
    std::thread sending([&] { text = refusal(mailTo("bob@b.example"), 502); });
    silent.awaitConnection();
    silent.say("HTTP/1.1 400 Bad Request\r\n");
    sending.join();
    EXPECT_EQ(text, server() + " does not speak SMTP: HTTP/1.1 400 Bad Request");
}
