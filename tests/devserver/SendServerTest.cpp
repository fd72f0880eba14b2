#include "SendServerTest.h"

#include <glib.h>

#include <fstream>

namespace fs = std::filesystem;

SendServerTest::SendServerTest()
    : m_recipient(m_folder.path() / "state/mail/ilias") {}

nlohmann::json SendServerTest::mail() {
    return {{"to", "ilias@corvanite.example"}, {"subject", "Hello"}, {"body", "<p>Text</p>"}};
}

std::string SendServerTest::base64(const std::string &bytes) {
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        g_base64_encode(reinterpret_cast<const guchar *>(bytes.data()), bytes.size()), g_free);
    return text.get();
}

httplib::Result SendServerTest::send(const nlohmann::json &request) {
    return post("api/emails/send", request.dump());
}

void SendServerTest::sendWell(const nlohmann::json &request) {
    const auto answer = send(request);
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->status, 200) << answer->body;
}

std::string SendServerTest::refusal(const nlohmann::json &request, int status) {
    const auto before = files(), recipientBefore = filesOf(m_recipient);
    const auto answer = send(request);
    EXPECT_EQ(answer->status, status) << answer->body;
    EXPECT_EQ(files(), before);
    EXPECT_EQ(filesOf(m_recipient), recipientBefore);
    return nlohmann::json::parse(answer->body).value("message", "");
}

std::vector<fs::path> SendServerTest::filesIn(const fs::path &directory) {
    std::vector<fs::path> files;
    for (const auto &entry : fs::directory_iterator(directory))
        files.push_back(entry.path());
    return files;
}

std::string SendServerTest::contentOf(const fs::path &file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

fs::path SendServerTest::delivered() const {
    const auto files = filesIn(m_recipient / "new");
    return files.size() == 1 ? files.front() : throw std::runtime_error("not one message has come");
}

fs::path SendServerTest::sentCopy() const {
    const auto files = filesIn(m_maildir / ".Sent/cur");
    return files.size() == 1 ? files.front() : throw std::runtime_error("not one message lies in Sent");
}

nlohmann::json SendServerTest::parsed(const fs::path &file) {
    return nlohmann::json::parse(
        RunningProgram({"/usr/bin/python3", DEVSERVER_TEST_FOLDER "/read_mail.py", file}).readLine());
}

nlohmann::json SendServerTest::people(const std::vector<std::pair<std::string, std::string>> &people) {
    auto list = nlohmann::json::array();
    for (const auto &[name, address] : people)
        list.push_back(nlohmann::json::array({name, address}));
    return list;
}
