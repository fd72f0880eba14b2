#include "ServerTest.h"

#include "maildir/FolderName.h"

namespace {

using FolderTest = ServerTest;

TEST_F(FolderTest, TheListTellsRolesAndCountsAndDecodesNames) {
    deliverSeen(1);
    deliver("2.a", "Subject: a\n\n");
    for (const char *name : {".Junk E-mail", ".K&APw-ste.H&AOQ-fen", ".Deleted Items", ".nomail"})
        std::filesystem::create_directories(m_maildir / name / "cur");
    for (const char *name : {".Junk E-mail", ".K&APw-ste.H&AOQ-fen", ".Deleted Items"})
        std::filesystem::create_directories(m_maildir / name / "new");
    start();
    signIn();
    EXPECT_EQ(get("api/folders/cached")->body, get("api/folders")->body);
    EXPECT_EQ(getJSON("api/folders"), nlohmann::json::parse(R"({"folders":[
        {"path":"INBOX","name":"INBOX","type":"inbox","total":2,"unseen":1},
        {"path":"Archive","name":"Archive","type":"archive","total":0,"unseen":0},
        {"path":"Deleted Items","name":"Deleted Items","type":"folder","total":0,"unseen":0},
        {"path":"Junk E-mail","name":"Junk E-mail","type":"spam","total":0,"unseen":0},
        {"path":"Küste/Häfen","name":"Häfen","type":"folder","total":0,"unseen":0},
        {"path":"Trash","name":"Trash","type":"trash","total":0,"unseen":0}]})"));
}

TEST_F(FolderTest, FoldersAreMadeRenamedAndDeletedWithWhatIsBelowThem) {
    start();
    signIn();
    EXPECT_EQ(postStatus("api/folders/create", R"({"name":"Work"})"), 200);
    EXPECT_EQ(postStatus("api/folders/create", R"({"name":"Work/Größe & Co"})"), 200);
    EXPECT_TRUE(std::filesystem::is_directory(m_maildir / ".Work.Gr&APYA3w-e &- Co/cur"));
    EXPECT_EQ(postStatus("api/folders/create", R"({"name":"Work"})"), 409);
    deliver("1.a:2,S", "Subject: a\n\n", "cur", ".Work");
    EXPECT_EQ(postStatus("api/folders/rename", R"({"old_name":"Work","new_name":"Trash"})"), 409);
    EXPECT_EQ(postStatus("api/folders/rename", R"({"old_name":"Work","new_name":"Jobs"})"), 200);
    EXPECT_EQ(files(), std::vector<std::string>{".Jobs/cur/1.a:2,S"});
    EXPECT_EQ(get("api/emails/list?folder=Jobs%2FGr%C3%B6%C3%9Fe%20%26%20Co")->status, 200);
    EXPECT_EQ(postStatus("api/folders/delete", R"({"name":"Jobs"})"), 200);
    EXPECT_EQ(getJSON("api/folders").at("folders").size(), 3U);
    EXPECT_EQ(postStatus("api/folders/delete", R"({"name":"Jobs"})"), 404);
    EXPECT_EQ(postStatus("api/folders/delete", R"({"name":"INBOX"})"), 400);
    EXPECT_EQ(postStatus("api/folders/rename", R"({"old_name":"INBOX","new_name":"In"})"), 400);
}

TEST_F(FolderTest, NamesThatLeaveTheMaildirAreRefused) {
    start();
    signIn();
    for (const std::string name : {"", ".", "..", "../out", "a/../b", "/abs", "a//b", "a/", "a.b", "a\\\\b",
                                   "a\\u0000b", "a\\nb", "INBOX", "inbox"}) {
        EXPECT_EQ(postStatus("api/folders/create", "{\"name\":\"" + name + "\"}"), 400) << name;
        const auto renamed = postStatus("api/folders/rename", R"({"old_name":"Archive","new_name":")" + name + "\"}");
        EXPECT_EQ(renamed, 400) << name;
    }
    EXPECT_EQ(postStatus("api/folders/create", "{\"name\":\"" + std::string(300, 'a') + "\"}"), 400);
    EXPECT_EQ(postStatus("api/folders/delete", R"({"name":"../state"})"), 404);
    EXPECT_TRUE(std::filesystem::exists(m_folder.path() / "state/accounts.sqlite"));
    EXPECT_EQ(getJSON("api/folders").at("folders").size(), 3U);
}

TEST(FolderNameTest, ModifiedUTF7IsReadAndWritten) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {".Sent", "Sent"}, {".A.B", "A/B"}, {".&ZeVnLIqe-", "日本語"}, {".R&-D", "R&D"}, {".Caf&AOk-", "Café"}};
    for (const auto &[directory, path] : cases) {
        EXPECT_EQ(folderPathOfDirectory(directory), path);
        EXPECT_EQ(directoryOfNewFolder(path), directory);
    }
}

} // namespace
