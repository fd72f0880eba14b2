#pragma once

#include "ServerTest.h"

/// The two demo accounts, who write to each other: "demo" over the test's Maildir, "ilias" over one of the state's.
class SendServerTest : public ServerTest {
protected:
    SendServerTest();

    /// A request to send from which a test changes what it is about.
    static nlohmann::json mail();
    static std::string base64(const std::string &bytes);

    httplib::Result send(const nlohmann::json &request);
    /// Expects success.
    void sendWell(const nlohmann::json &request);
    /// Expects a refusal with this status, and that nobody, not even the sender, has got anything.
    std::string refusal(const nlohmann::json &request, int status);

    /// The message files of one directory of a Maildir.
    static std::vector<std::filesystem::path> filesIn(const std::filesystem::path &directory);
    static std::string contentOf(const std::filesystem::path &file);
    /// The one message that Ilias has got.
    std::filesystem::path delivered() const;
    std::filesystem::path sentCopy() const;
    /// What another program's parser makes of a message.
    static nlohmann::json parsed(const std::filesystem::path &file);
    /// Names and addresses as parsed() gives them.
    static nlohmann::json people(const std::vector<std::pair<std::string, std::string>> &people);

    std::filesystem::path m_recipient;
};
