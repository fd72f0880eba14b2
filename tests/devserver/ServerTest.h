#pragma once

#include "EventReader.h"
#include "RunningServer.h"

#include <gtest/gtest.h>
#include <httplib.h>
#include <nlohmann/json.hpp>

#include <memory>
#include <optional>

/// The program over a Maildir of the test's own, with a client that signs in as "demo".
class ServerTest : public testing::Test {
protected:
    ServerTest();

    /// Starts the server, again if it ran before, over the same mail and state.
    void start(const std::vector<std::string> &furtherArguments = {});
    void signIn(const std::string &name = "demo", const std::string &password = "corvanite");

    /// Puts a message file into a folder's directory, as a delivery does: whole, by a rename. "" is the inbox.
    void deliver(const std::string &fileName, const std::string &message, const std::string &directory = "new",
                 const std::string &folder = "");
    /// Delivers `count` seen messages to the inbox, which get the uids from 1.
    void deliverSeen(int count);

    httplib::Result get(const std::string &pathAndQuery);
    httplib::Result post(const std::string &path, const std::string &body);
    /// The JSON of a successful answer; null otherwise.
    nlohmann::json getJSON(const std::string &pathAndQuery);
    int postStatus(const std::string &path, const std::string &body);

    std::vector<std::int64_t> listedUIDs(const std::string &query);
    /// All message file names of the Maildir below their folders, sorted: "cur/1.x:2,S", ".Trash/cur/...".
    std::vector<std::string> files() const { return filesOf(m_maildir); }
    static std::vector<std::string> filesOf(const std::filesystem::path &maildir);
    std::unique_ptr<EventReader> openEvents() const {
        return std::make_unique<EventReader>(m_server->address(), m_cookie);
    }

    TemporaryFolder m_folder;
    std::filesystem::path m_maildir;
    std::optional<RunningServer> m_server;
    std::unique_ptr<httplib::Client> m_client;
    std::string m_cookie;
};
