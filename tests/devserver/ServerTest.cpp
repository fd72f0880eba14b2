#include "ServerTest.h"

#include <fstream>

namespace fs = std::filesystem;

ServerTest::ServerTest()
    : m_maildir(m_folder.path() / "Maildir") {
    for (const char *folder : {"", ".Trash", ".Archive"}) {
        for (const char *directory : {"cur", "new", "tmp"})
            fs::create_directories(m_maildir / folder / directory);
    }
}

void ServerTest::start(const std::vector<std::string> &furtherArguments) {
    std::vector<std::string> arguments{"--port",    "0",       "--state",     m_folder.path() / "state",
                                       "--maildir", m_maildir, "--job-pause", "0"};
    arguments.insert(arguments.end(), furtherArguments.begin(), furtherArguments.end());
    m_server.reset();
    m_server.emplace(arguments);
    m_client = std::make_unique<httplib::Client>(m_server->address());
    m_client->enable_server_certificate_verification(false);
    m_client->set_tcp_nodelay(true);
    m_client->set_keep_alive(true);
    m_client->set_read_timeout(60);
}

void ServerTest::signIn(const std::string &name, const std::string &password) {
    const nlohmann::json body{{"username", name}, {"password", password}};
    const auto answer = m_client->Post("/api/auth/login", body.dump(), "application/json");
    ASSERT_TRUE(answer);
    ASSERT_EQ(answer->status, 200) << answer->body;
    const auto cookie = answer->get_header_value("Set-Cookie");
    m_cookie = cookie.substr(0, cookie.find(';'));
}

void ServerTest::deliver(const std::string &fileName, const std::string &message, const std::string &directory,
                         const std::string &folder) {
    const auto place = m_maildir / folder;
    std::ofstream(place / "tmp" / fileName, std::ios::binary) << message;
    fs::rename(place / "tmp" / fileName, place / directory / fileName);
}

void ServerTest::deliverSeen(int count) {
    for (int number = 1; number <= count; ++number) {
        const auto text = std::to_string(number);
        deliver(std::to_string(1000 + number) + ".x:2,S",
                "From: a@b.example\nSubject: Number " + text + "\nMessage-ID: <" + text + "@b.example>\n\nText\n",
                "cur");
    }
}

httplib::Result ServerTest::get(const std::string &pathAndQuery) {
    return m_client->Get("/" + pathAndQuery, {{"Cookie", m_cookie}, {"Accept", "application/json"}});
}

httplib::Result ServerTest::post(const std::string &path, const std::string &body) {
    return m_client->Post("/" + path, {{"Cookie", m_cookie}}, body, "application/json");
}

nlohmann::json ServerTest::getJSON(const std::string &pathAndQuery) {
    const auto answer = get(pathAndQuery);
    EXPECT_TRUE(answer && answer->status == 200) << pathAndQuery << ": " << (answer ? answer->body : "no answer");
    return answer && answer->status == 200 ? nlohmann::json::parse(answer->body) : nlohmann::json();
}

int ServerTest::postStatus(const std::string &path, const std::string &body) {
    const auto answer = post(path, body);
    return answer ? answer->status : 0;
}

std::vector<std::int64_t> ServerTest::listedUIDs(const std::string &query) {
    std::vector<std::int64_t> uids;
    const auto list = getJSON("api/emails/list?" + query);
    for (const auto &email : list.at("emails"))
        uids.push_back(email.at("uid").get<std::int64_t>());
    return uids;
}

std::vector<std::string> ServerTest::filesOf(const fs::path &maildir) {
    std::vector<std::string> files;
    for (const auto &entry : fs::recursive_directory_iterator(maildir)) {
        if (entry.is_regular_file())
            files.push_back(fs::relative(entry.path(), maildir));
    }
    std::sort(files.begin(), files.end());
    return files;
}
