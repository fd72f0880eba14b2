#include "ServerTest.h"

namespace {

class ChangeTest : public ServerTest {
protected:
    void startWith(int messages) {
        deliverSeen(messages);
        start();
        signIn();
    }

    void waitForJobs(EventReader &events, std::size_t arrivals) {
        std::size_t seen = 0;
        events.waitFor("emails_changed", [&](const nlohmann::json &data) {
            if (data.at("folder") == "Archive")
                seen += data.at("uids").size();
            return seen == arrivals;
        });
    }
};

using Names = std::vector<std::string>;
using UIDs = std::vector<std::int64_t>;

TEST_F(ChangeTest, FlagsAreLettersInTheFileName) {
    deliver("1.a", "Subject: a\n\n");
    start();
    signIn();
    const std::vector<std::pair<std::string, std::string>> steps{
        {R"("flag":"flagged","set":true)", "cur/1.a:2,F"},    {R"("flag":"seen","set":true)", "cur/1.a:2,FS"},
        {R"("flag":"answered","set":true)", "cur/1.a:2,FRS"}, {R"("flag":"seen","set":true)", "cur/1.a:2,FRS"},
        {R"("flag":"flagged","set":false)", "cur/1.a:2,RS"},  {R"("flag":"seen","set":false)", "cur/1.a:2,R"},
    };
    for (const auto &[fields, file] : steps) {
        EXPECT_EQ(postStatus("api/emails/flag", R"({"uid":1,"folder":"INBOX",)" + fields + "}"), 200);
        EXPECT_EQ(files(), Names{file}) << fields;
    }
}

TEST_F(ChangeTest, WronglyTypedBodiesChangeNothing) {
    startWith(1);
    const std::vector<std::pair<std::string, std::string>> cases{
        {"flag", R"({"uid":"1","folder":"INBOX","flag":"seen","set":false})"},
        {"flag", R"({"uid":1,"folder":"INBOX","flag":"seen","set":"false"})"},
        {"flag", R"({"uid":1,"folder":"INBOX","flag":"\\Seen","set":false})"},
        {"bulk-flag", R"({"uids":[1,"2"],"folder":"INBOX","flag":"seen","set":false})"},
        {"move", R"({"uid":1.5,"from_folder":"INBOX","to_folder":"Trash"})"},
        {"move", R"({"uid":1,"from_folder":"INBOX"})"},
        {"delete", R"({"uid":1,"folder":"INBOX","to_folder":"Trash"})"},
    };
    for (const auto &[path, body] : cases)
        EXPECT_EQ(postStatus("api/emails/" + path, body), 400) << body;
    EXPECT_EQ(files(), Names{"cur/1001.x:2,S"});
}

TEST_F(ChangeTest, MovesAndDeletesAreRenamesUntilTheyArePermanent) {
    startWith(3);
    EXPECT_EQ(postStatus("api/emails/move", R"({"uid":1,"from_folder":"INBOX","to_folder":"Archive"})"), 200);
    EXPECT_EQ(postStatus("api/emails/delete", R"({"uid":2,"folder":"INBOX","permanent":false,"to_folder":"Trash"})"),
              200);
    EXPECT_EQ(files(), (Names{".Archive/cur/1001.x:2,S", ".Trash/cur/1002.x:2,S", "cur/1003.x:2,S"}));
    EXPECT_EQ(postStatus("api/emails/delete", R"({"uid":3,"folder":"INBOX","permanent":true,"to_folder":"Trash"})"),
              200);
    EXPECT_EQ(files(), (Names{".Archive/cur/1001.x:2,S", ".Trash/cur/1002.x:2,S"}));
    EXPECT_EQ(postStatus("api/emails/move", R"({"uid":3,"from_folder":"INBOX","to_folder":"Trash"})"), 404);
    EXPECT_EQ(postStatus("api/emails/move", R"({"uid":1,"from_folder":"Archive","to_folder":"../out"})"), 404);
    EXPECT_EQ(postStatus("api/emails/move", R"({"uid":1,"from_folder":"Archive","to_folder":"Junk"})"), 200);
    EXPECT_EQ(files(), (Names{".Junk/cur/1001.x:2,S", ".Trash/cur/1002.x:2,S"}));
}

TEST_F(ChangeTest, AMoveNeverReplacesAMessageOfTheSameName) {
    deliver("1001.x:2,", "Subject: other\n\n", "cur", ".Trash");
    startWith(1);
    EXPECT_EQ(postStatus("api/emails/move", R"({"uid":1,"from_folder":"INBOX","to_folder":"Trash"})"), 200);
    EXPECT_EQ(files().size(), 2U);
    EXPECT_EQ(getJSON("api/emails/read/1?folder=Trash").at("subject"), "other");
    EXPECT_EQ(getJSON("api/emails/read/2?folder=Trash").at("subject"), "Number 1");
}

TEST_F(ChangeTest, FiveMessagesMoveAtOnceAndSixByAJob) {
    startWith(11);
    EXPECT_EQ(postStatus("api/emails/bulk-move", R"({"uids":[1,2,3,4,5],"from_folder":"INBOX","to_folder":"Archive"})"),
              200);
    EXPECT_EQ(getJSON("api/emails/list?folder=Archive").at("total"), 5);
    EXPECT_EQ(get("api/jobs/list")->body, R"({"jobs":[]})");

    auto events = openEvents();
    EXPECT_EQ(
        postStatus("api/emails/bulk-move", R"({"uids":[6,7,8,9,10,11],"from_folder":"INBOX","to_folder":"Archive"})"),
        200);
    EXPECT_EQ(listedUIDs("folder=INBOX"), UIDs{});
    waitForJobs(*events, 6);
    EXPECT_EQ(getJSON("api/emails/list?folder=Archive").at("total"), 11);
    const auto jobs = getJSON("api/jobs/list").at("jobs");
    ASSERT_EQ(jobs.size(), 1U);
    EXPECT_EQ(jobs[0].at("type"), "bulk_move");
    EXPECT_TRUE(jobs[0].at("_id").is_string());
    EXPECT_TRUE(jobs[0].at("started_at").is_number_float());
}

TEST_F(ChangeTest, AJobThatIsNotDoneIsActiveAndItsMessagesAreOutOfSight) {
    deliverSeen(7);
    start({"--job-pause", "3600000"});
    signIn();
    auto events = openEvents();
    EXPECT_EQ(postStatus("api/emails/bulk-delete",
                         R"({"uids":[1,2,3,4,5,6],"folder":"INBOX","permanent":false,"to_folder":"Trash"})"),
              200);
    const auto changed = events->waitFor("emails_changed");
    EXPECT_EQ(changed, nlohmann::json::parse(R"({"folder":"INBOX","uids":[1,2,3,4,5,6],"seen":false,"removed":true})"));
    const auto status = getJSON("api/jobs/list").at("jobs").at(0).at("status");
    EXPECT_TRUE(status == "pending" || status == "running") << status;
    EXPECT_EQ(listedUIDs("folder=INBOX"), UIDs{7});
    EXPECT_EQ(getJSON("api/emails/notification-state?folder=INBOX").at("total"), 1);
    EXPECT_EQ(m_server->terminate(), 0);
    start();
    EXPECT_EQ(getJSON("api/jobs/list").at("jobs").at(0).at("status"), "failed");
    EXPECT_EQ(getJSON("api/emails/list?folder=INBOX").at("total"), 7);
}

TEST_F(ChangeTest, ABulkChangePassesOverMessagesThatAreGone) {
    startWith(3);
    EXPECT_EQ(postStatus("api/emails/bulk-flag", R"({"uids":[1,77,3],"folder":"INBOX","flag":"flagged","set":true})"),
              200);
    EXPECT_EQ(files(), (Names{"cur/1001.x:2,FS", "cur/1002.x:2,S", "cur/1003.x:2,FS"}));
    EXPECT_EQ(postStatus("api/emails/bulk-delete",
                         R"({"uids":[2,77],"folder":"INBOX","permanent":true,"to_folder":"Trash"})"),
              200);
    EXPECT_EQ(files(), (Names{"cur/1001.x:2,FS", "cur/1003.x:2,FS"}));
}

TEST_F(ChangeTest, AFileThatAnotherProgramRenamedIsStillFound) {
    startWith(1);
    std::filesystem::rename(m_maildir / "cur/1001.x:2,S", m_maildir / "cur/1001.x:2,RS");
    EXPECT_EQ(postStatus("api/emails/flag", R"({"uid":1,"folder":"INBOX","flag":"flagged","set":true})"), 200);
    EXPECT_EQ(files(), Names{"cur/1001.x:2,FRS"});
}

TEST_F(ChangeTest, AKillInTheMiddleOfABulkMoveLosesAndDoublesNothing) {
    constexpr int count = 300;
    deliverSeen(count);
    std::string uids;
    for (int uid = 1; uid <= count; ++uid)
        uids += (uid > 1 ? "," : "") + std::to_string(uid);
    start();
    signIn();
    auto events = openEvents();
    ASSERT_EQ(
        postStatus("api/emails/bulk-move", R"({"uids":[)" + uids + R"(],"from_folder":"INBOX","to_folder":"Archive"})"),
        200);
    events->waitFor("emails_changed", [](const nlohmann::json &data) { return data.at("folder") == "Archive"; });
    m_server->kill();
    ASSERT_EQ(files().size(), static_cast<std::size_t>(count));

    start();
    std::set<std::string> messages;
    int total = 0;
    for (const char *folder : {"INBOX", "Archive"}) {
        const auto list = getJSON(std::string("api/emails/list?per_page=500&folder=") + folder);
        total += list.at("total").get<int>();
        for (const auto &email : list.at("emails"))
            messages.insert(email.at("message_id").get<std::string>());
    }
    EXPECT_EQ(total, count);
    EXPECT_EQ(messages.size(), static_cast<std::size_t>(count));
}

} // namespace
