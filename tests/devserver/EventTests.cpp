#include "ServerTest.h"

#include <fstream>

namespace fs = std::filesystem;

namespace {

class EventTest : public ServerTest {
protected:
    void startStream() {
        start();
        signIn();
        m_events = openEvents();
    }

    static EventReader::Condition inFolder(const std::string &folder) {
        return [folder](const nlohmann::json &data) { return data.at("folder") == folder; };
    }

    std::unique_ptr<EventReader> m_events;
};

using nlohmann::json;

TEST_F(EventTest, TheStreamIsAnUncompressedEventStream) {
    startStream();
    const auto headers = m_events->responseHeaders();
    EXPECT_EQ(headers.find("Content-Type")->second, "text/event-stream");
    EXPECT_EQ(headers.find("Cache-Control")->second, "no-cache");
    EXPECT_EQ(headers.find("Content-Encoding"), headers.end());
    EXPECT_EQ(getJSON("api/events/stats").at("totalConnections"), 1);
}

TEST_F(EventTest, ADeliveryByAnotherProgramIsAnnounced) {
    startStream();
    deliver("2000.a", "From: Zoe <zoe@h.example>\nSubject: Fresh\nDate: Tue, 03 Nov 2026 10:00:00 +0100\n\nHello\n");
    const auto state = m_events->waitFor("mailbox_state");
    EXPECT_EQ(state, getJSON("api/emails/notification-state?folder=INBOX"));
    EXPECT_EQ(state.at("unread_uids"), json::parse("[1]"));
    EXPECT_EQ(m_events->waitFor("new_emails"), json::parse(R"({"count":1,"latest":[{"folder":"INBOX","uid":1,
        "subject":"Fresh","from":"Zoe <zoe@h.example>","to":"","date":"Tue, 03 Nov 2026 10:00:00 +0100",
        "timestamp":1793696400.0,"seen":false,"flagged":false,"answered":false,"has_attachment":false,"size":86,
        "message_id":"","in_reply_to":"","body_text":"Hello"}]})"));
    EXPECT_EQ(m_events->waitFor("folders_updated"), getJSON("api/folders"));
    EXPECT_EQ(files(), std::vector<std::string>{"new/2000.a"});
}

TEST_F(EventTest, EveryWayToDeliverIsSeen) {
    startStream();
    const auto expectSubject = [&](const std::string &subject) {
        const auto event = m_events->waitFor("new_emails");
        EXPECT_EQ(event.at("latest").at(0).at("subject"), subject);
    };
    deliver("2000.renamed:2,", "Subject: renamed into cur\n\n", "cur");
    expectSubject("renamed into cur");
    std::ofstream(m_maildir / "tmp/2001.linked") << "Subject: linked\n\n";
    fs::create_hard_link(m_maildir / "tmp/2001.linked", m_maildir / "new/2001.linked");
    expectSubject("linked");
    deliver("2002.sub", "Subject: in a folder\n\n", "new", ".Archive");
    const auto event = m_events->waitFor("new_emails");
    EXPECT_EQ(event.at("latest").at(0).at("folder"), "Archive");
}

TEST_F(EventTest, AFolderMadeByAnotherProgramIsListedAndWatched) {
    startStream();
    fs::create_directories(m_maildir / ".Lists");
    // The server hears of the bare directory before it becomes a folder.
    m_events->waitFor("folders_updated");
    for (const char *directory : {"tmp", "cur", "new"})
        fs::create_directory(m_maildir / ".Lists" / directory);
    m_events->waitFor("folders_updated", [](const json &data) { return data.at("folders").size() == 4; });
    deliver("2000.a", "Subject: in the new folder\n\n", "new", ".Lists");
    EXPECT_EQ(m_events->waitFor("new_emails").at("latest").at(0).at("folder"), "Lists");
    fs::remove_all(m_maildir / ".Lists");
    m_events->waitFor("folders_updated", [](const json &data) { return data.at("folders").size() == 3; });
}

TEST_F(EventTest, FlagsMovesAndRemovalsByAnotherProgramAreAnnounced) {
    deliver("1001.a:2,", "Subject: a\n\n", "cur");
    startStream();
    fs::rename(m_maildir / "cur/1001.a:2,", m_maildir / "cur/1001.a:2,S");
    EXPECT_EQ(m_events->waitFor("emails_changed"),
              json::parse(R"({"folder":"INBOX","uids":[1],"seen":true,"removed":false})"));
    fs::rename(m_maildir / "cur/1001.a:2,S", m_maildir / "cur/1001.a:2,F");
    EXPECT_EQ(m_events->waitFor("emails_changed"),
              json::parse(R"({"folder":"INBOX","uids":[1],"seen":false,"removed":false})"));
    fs::rename(m_maildir / "cur/1001.a:2,F", m_maildir / ".Archive/cur/1001.a:2,F");
    EXPECT_EQ(m_events->waitFor("emails_changed", inFolder("INBOX")).at("removed"), true);
    fs::remove(m_maildir / ".Archive/cur/1001.a:2,F");
    const auto removal = [](const json &data) { return data.at("folder") == "Archive" && data.at("removed") == true; };
    EXPECT_EQ(m_events->waitFor("emails_changed", removal).at("uids"), json::parse("[1]"));
}

TEST_F(EventTest, AMoveByAnotherProgramIsNoNewMail) {
    deliver("1001.a:2,", "Subject: moved\n\n", "cur");
    startStream();
    fs::rename(m_maildir / "cur/1001.a:2,", m_maildir / ".Archive/cur/1001.a:2,");
    m_events->waitFor("emails_changed", inFolder("Archive"));
    deliver("1002.b", "Subject: new\n\n");
    EXPECT_EQ(m_events->waitFor("new_emails").at("latest").at(0).at("subject"), "new");
}

TEST_F(EventTest, ReadingAMessageIsAnnouncedToAllStreamsOfTheAccountOnly) {
    deliver("1001.a", "Subject: a\n\n");
    start({"--account", "demo:corvanite", "--account", "other:secret"});
    signIn("other", "secret");
    const auto foreign = openEvents();
    signIn();
    const auto first = openEvents(), second = openEvents();
    getJSON("api/emails/read/1?folder=INBOX");
    const auto expected = json::parse(R"({"folder":"INBOX","uids":[1],"seen":true,"removed":false})");
    EXPECT_EQ(first->waitFor("emails_changed"), expected);
    EXPECT_EQ(second->waitFor("emails_changed"), expected);
    EXPECT_EQ(second->waitFor("mailbox_state").at("unseen"), 0);
    signIn("other", "secret");
    EXPECT_EQ(postStatus("api/folders/create", R"({"name":"Mark"})"), 200);
    EXPECT_EQ(foreign->waitFor("folders_updated").at("folders").size(), 2U);
}

TEST_F(EventTest, ManyOpenStreamsLeaveRequestsUnhindered) {
    startStream();
    std::vector<std::unique_ptr<EventReader>> streams;
    for (int i = 0; i < 40; ++i)
        streams.push_back(openEvents());
    EXPECT_EQ(get("api/auth/me")->status, 200);
    deliver("1001.a", "Subject: a\n\n");
    for (const auto &stream : streams)
        EXPECT_EQ(stream->waitFor("new_emails").at("count"), 1);
}

TEST_F(EventTest, SigningOutEndsTheStreamsOfThatSessionOnly) {
    startStream();
    signIn();
    const auto ofAnotherSession = openEvents();
    EXPECT_EQ(postStatus("api/auth/logout", ""), 200);
    EXPECT_TRUE(ofAnotherSession->waitForEnd());
    deliver("1001.a", "Subject: a\n\n");
    EXPECT_EQ(m_events->waitFor("new_emails").at("count"), 1);
}

TEST_F(EventTest, APoliteStopEndsStreamsAndSucceeds) {
    startStream();
    EXPECT_EQ(m_server->terminate(), 0);
    EXPECT_TRUE(m_events->waitForEnd());
}

} // namespace
