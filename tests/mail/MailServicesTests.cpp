#include "mail/EmailService.h"
#include "mail/FolderService.h"
#include "rules/BlockedService.h"

#include "mail/MailAnswers.h"
#include "notify/NotificationService.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

/// A change of the server's mail or folders, with the bytes that it sends.
struct ChangeRow {
    const char *name;
    QCoro::Task<> (*run)();
    QByteArray path;
    QByteArray body;
    /// Whether the state of the folder "Work" is read afterwards.
    bool readsState = true;
};

const ChangeRow changes[] = {
    {"Move", [] { return EmailService().moveEmail(7, u"Work"_s, u"Bin"_s); }, "/api/emails/move",
     R"({"uid": 7, "from_folder": "Work", "to_folder": "Bin"})"},
    {"BulkMove",
     [] {
         return EmailService().bulkMoveEmails({7, 8}, u"Work"_s, u"Bin"_s);
     },
     "/api/emails/bulk-move", R"({"uids": [7, 8], "from_folder": "Work", "to_folder": "Bin"})"},
    {"Delete", [] { return EmailService().deleteEmail(7, u"Work"_s, false, u"Trash"_s); }, "/api/emails/delete",
     R"({"uid": 7, "folder": "Work", "permanent": false, "to_folder": "Trash"})"},
    {"BulkDelete", [] { return EmailService().bulkDeleteEmails({7}, u"Work"_s, true, u"Trash"_s); },
     "/api/emails/bulk-delete", R"({"uids": [7], "folder": "Work", "permanent": true, "to_folder": "Trash"})"},
    {"Seen", [] { return EmailService().setFlag(7, u"Work"_s, u"\\Seen"_s, true); }, "/api/emails/flag",
     R"({"uid": 7, "folder": "Work", "flag": "seen", "set": true})"},
    {"Unseen", [] { return EmailService().setFlag(7, u"Work"_s, u"seen"_s, false); }, "/api/emails/flag",
     R"({"uid": 7, "folder": "Work", "flag": "seen", "set": false})"},
    {"Flagged", [] { return EmailService().setFlag(7, u"Work"_s, u"\\Flagged"_s, true); }, "/api/emails/flag",
     R"({"uid": 7, "folder": "Work", "flag": "flagged", "set": true})", false},
    {"BulkFlag",
     [] {
         return EmailService().bulkSetFlag({7, 8}, u"Work"_s, u"seen"_s, true);
     },
     "/api/emails/bulk-flag", R"({"uids": [7, 8], "folder": "Work", "flag": "seen", "set": true})"},
    {"CreateFolder", [] { return FolderService().createFolder(u"New"_s); }, "/api/folders/create", R"({"name": "New"})",
     false},
    {"RenameFolder", [] { return FolderService().renameFolder(u"Old"_s, u"New"_s); }, "/api/folders/rename",
     R"({"old_name": "Old", "new_name": "New"})", false},
    {"DeleteFolder", [] { return FolderService().deleteFolder(u"Old"_s); }, "/api/folders/delete", R"({"name": "Old"})",
     false},
    {"ShareFolder", [] { return FolderService().shareFolder(u"Work"_s, u"ada"_s, u"read"_s); }, "/api/folders/share",
     R"({"folder_path": "Work", "shared_with_username": "ada", "permission": "read"})", false},
    {"UnshareFolder", [] { return FolderService().unshareFolder(u"s1"_s); }, "/api/folders/unshare",
     R"({"share_id": "s1"})", false},
    {"Block", [] { return BlockedService().add(u"sender"_s, u"*@x.org"_s); }, "/api/blocked/add",
     R"({"type": "sender", "pattern": "*@x.org"})", false},
    {"Unblock", [] { return BlockedService().remove(u"name"_s, u" *Casino*"_s); }, "/api/blocked/delete",
     R"({"type": "name", "pattern": " *Casino*"})", false},
};

class MailServiceTest : public CoreTest {
protected:
    void SetUp() override { server.makeCurrent(); }
    void TearDown() override {
        NotificationService::shared().forgetMailboxes();
        CoreTest::TearDown();
    }

    const std::map<QString, MailboxNotificationState> &states() {
        return NotificationService::shared().mailboxStates();
    }

    FakeServer server;
};

class Change : public MailServiceTest, public testing::WithParamInterface<ChangeRow> {};

/// A list request's filters and the query that they make.
struct QueryRow {
    const char *name;
    EmailQuery query;
    QByteArray target;
};

class ListQuery : public MailServiceTest, public testing::WithParamInterface<QueryRow> {};

const QueryRow queries[] = {
    {"Plain", {.folder = u"INBOX"_s}, "folder=INBOX&page=1&per_page=50"},
    {"Page", {.folder = u"A/B C+D"_s, .page = 3, .perPage = 100}, "folder=A/B%20C%2BD&page=3&per_page=100"},
    {"Everything",
     {.folder = u"W"_s,
      .search = u"ä&b"_s,
      .hasAttachment = true,
      .lastDays = 7,
      .flaggedOnly = true,
      .dateFrom = u"2026-01-02"_s,
      .dateTo = u"2026-02-03"_s},
     "date_from=2026-01-02&date_to=2026-02-03&flagged=1&folder=W&has_attachment=1&last_days=7&page=1&per_page=50"
     "&search=%C3%A4%26b"},
    {"OneDate", {.folder = u"W"_s, .dateTo = u"2026-02-03"_s}, "date_to=2026-02-03&folder=W&page=1&per_page=50"},
};

} // namespace

TEST_P(Change, SendsItsBodyAndThenReadsTheState) {
    const auto &row = GetParam();
    auto &change = server.expect("POST", row.path).answer(204);
    if (row.readsState)
        server.expect("GET", "/api/emails/notification-state?folder=Work").json(stateJSON("Work", "7", 1));
    await(row.run());
    EXPECT_EQ(parseJSON(change.request().body), parseJSON(row.body));
    EXPECT_EQ(change.request().header("content-type"), "application/json");
    EXPECT_EQ(states().contains(u"Work"_s), row.readsState);
}

TEST_P(Change, ThatFailsHasNoConsequences) {
    server.expect("POST", GetParam().path).json(R"({"message": "No such folder"})", 409);
    EXPECT_EQ(failureOf(GetParam().run()), u"No such folder"_s);
    server.assertSilence();
}

INSTANTIATE_TEST_SUITE_P(, Change, testing::ValuesIn(changes), rowName);

TEST_P(ListQuery, HoldsOnlyWhatIsInForce) {
    server.expect("GET", "/api/emails/list?" + GetParam().target).json(pageJSON(emptyEmails({5}), 1, 1));
    EXPECT_EQ(await(EmailService().listEmails(GetParam().query)).emails.at(0).uid, 5);
}

INSTANTIATE_TEST_SUITE_P(, ListQuery, testing::ValuesIn(queries), rowName);

TEST_F(MailServiceTest, AFailedStateDoesNotFailTheChange) {
    server.expect("POST", "/api/emails/move").answer(200);
    server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500);
    EXPECT_EQ(failureOf(EmailService().moveEmail(7, u"Work"_s, u"Bin"_s)), QString());
    EXPECT_TRUE(states().empty());
}

TEST_F(MailServiceTest, AnOpenedMessageDoesNotWaitForTheBadge) {
    server.expect("GET", "/api/emails/read/7?folder=INBOX").json(R"({"uid": 7, "subject": "S"})");
    auto &state = server.expect("GET", "/api/emails/notification-state?folder=INBOX").held();
    EXPECT_EQ(await(EmailService().getEmail(7, u"INBOX"_s)).subject, u"S"_s);
    answerHeld(state, stateJSON("INBOX", "", 4));
    EXPECT_TRUE(spinUntil([&] { return NotificationService::shared().dockBadgeLabel.get() == u"4"_s; }));
}

TEST_F(MailServiceTest, AMessageThatCannotBeReadReadsNoState) {
    server.expect("GET", "/api/emails/read/7?folder=INBOX").json(R"({"subject": "S"})");
    EXPECT_EQ(failureOf(EmailService().getEmail(7, u"INBOX"_s)), u"uid: expected a number"_s);
    server.assertSilence();
}

TEST_F(MailServiceTest, ReadsCachedPages) {
    server.expect("GET", "/api/emails/cached?folder=INBOX&page=1&per_page=50").json(pageJSON("", 0, 0));
    EXPECT_TRUE(await(EmailService().cachedEmails(u"INBOX"_s, 1, 50)).emails.empty());
}

TEST_F(MailServiceTest, ReadsTheSource) {
    server.expect("GET", "/api/emails/source/7?folder=INBOX").json(R"({"source": "From: a"})");
    EXPECT_EQ(await(EmailService().getSource(7, u"INBOX"_s)), u"From: a"_s);
}

TEST_F(MailServiceTest, DownloadsAttachments) {
    server.expect("GET", "/api/emails/attachment?filename=a%26b.pdf&folder=INBOX&part=1.2&uid=7").answer(200, "one");
    server.expect("GET", "/api/emails/attachment?filename=file&folder=INBOX&part=4&uid=7").answer(200, "two");
    server.expect("GET", "/api/emails/attachments/zip?folder=INBOX&name=attachments_7&uid=7").answer(200, "all");
    EXPECT_EQ(await(EmailService().downloadAttachment(7, u"INBOX"_s, {.filename = u"a&b.pdf"_s, .partNum = u"1.2"_s})),
              "one");
    std::vector<double> fractions;
    const auto note = [&](qint64, qint64, double fraction) { fractions.push_back(fraction); };
    EXPECT_EQ(await(EmailService().downloadAttachment(7, u"INBOX"_s, {.part = 4}, note)), "two");
    EXPECT_EQ(fractions.back(), 1.0);
    EXPECT_EQ(await(EmailService().downloadAttachmentsZip(7, u"INBOX"_s)), "all");
}

TEST_F(MailServiceTest, ListsFolders) {
    server.expect("GET", "/api/folders").json(R"({"folders": [{"path": "INBOX", "name": "In", "unseen": 2}]})");
    server.expect("GET", "/api/folders/cached").json(R"({"folders": []})");
    EXPECT_EQ(await(FolderService().listFolders()).at(0),
              (MailFolder{.path = u"INBOX"_s, .name = u"In"_s, .unseen = 2}));
    EXPECT_TRUE(await(FolderService().cachedFolders()).empty());
}
