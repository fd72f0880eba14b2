#include "mail/EmailListActions.h"

#include "mail/EmailListDialogs.h"
#include "mail/EmailListFixture.h"
#include "mail/EmailListMenus.h"
#include "mail/MenuFinder.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QByteArray threeEmails = R"({"uid": 1, "from": "Ada <Ada@X.org>", "subject": "One"},
    {"uid": 2, "from": "Bo <bo@y.org>", "seen": true, "flagged": true}, {"uid": 3, "from": "nobody"})";

/// The folder "Work" with three messages, on a server whose special folders have names of their own.
class EmailListActionsTest : public EmailListTest {
protected:
    void SetUp() override {
        EmailListTest::SetUp();
        server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
        state->folders = {folderAt(u"INBOX.Old"_s, u"archive"_s), folderAt(u"INBOX.Bin"_s, u"trash"_s),
                          folderAt(u"INBOX.Bad"_s, u"spam"_s)};
        openFolder(folderAt(u"Work"_s));
    }
    void openFolder(const MailFolder &folder) {
        const auto path = folder.path.toUtf8();
        server.expect("GET", "/api/emails/cached?folder=" + path + "&page=1&per_page=50").answer(500);
        server.expect("GET", "/api/folders/cached")
            .json(R"({"folders": [{"path": "Work", "name": "Work"}, {"path": "A&B", "name": "A & B"}]})");
        expectPage(path).json(pageJSON(threeEmails, 120, 3));
        list->setFolder(folder);
        settle();
    }
    EmailSummary email(qint64 uid) const { return *list->email(uid); }
    std::vector<MenuSection> menu(qint64 uid) const { return emailRowActions(*list, email(uid)).menu; }
    FakeExchange &expectPost(const QByteArray &path) { return server.expect("POST", path).answer(200); }
    QString toastText() const {
        const auto toast = list->actions->spamToast.get();
        return toast ? toast->message : QString();
    }
};

struct RowAction {
    const char *name;
    qint64 uid;
    QStringList entry;
    QByteArray path, body;
};

class RowActionTests : public EmailListActionsTest, public testing::WithParamInterface<RowAction> {};

const RowAction rowActions[] = {
    {"Delete",
     1,
     {u"Delete"_s},
     "/api/emails/delete",
     R"({"uid": 1, "folder": "Work", "permanent": false, "to_folder": "INBOX.Bin"})"},
    {"Archive",
     1,
     {u"Archive"_s},
     "/api/emails/move",
     R"({"uid": 1, "from_folder": "Work", "to_folder": "INBOX.Old"})"},
    {"Move",
     2,
     {u"Move to..."_s, u"A & B"_s},
     "/api/emails/move",
     R"({"uid": 2, "from_folder": "Work", "to_folder": "A&B"})"},
    {"Spam",
     1,
     {u"Mark as Spam"_s},
     "/api/emails/move",
     R"({"uid": 1, "from_folder": "Work", "to_folder": "INBOX.Bad"})"},
    {"Read",
     1,
     {u"Mark as Read"_s},
     "/api/emails/flag",
     R"({"uid": 1, "folder": "Work", "flag": "seen", "set": true})"},
    {"Unread",
     2,
     {u"Mark as Unread"_s},
     "/api/emails/flag",
     R"({"uid": 2, "folder": "Work", "flag": "seen", "set": false})"},
    {"Star", 1, {u"Star"_s}, "/api/emails/flag", R"({"uid": 1, "folder": "Work", "flag": "flagged", "set": true})"},
    {"Unstar",
     2,
     {u"Unstar"_s},
     "/api/emails/flag",
     R"({"uid": 2, "folder": "Work", "flag": "flagged", "set": false})"},
};

struct MenuAction {
    const char *name;
    std::set<qint64> selection;
    MacMailAction action;
    QByteArray path, body;
};

class MenuActions : public EmailListActionsTest, public testing::WithParamInterface<MenuAction> {};

const MenuAction menuActions[] = {
    {"Archive",
     {1, 3},
     MacMailAction::archive,
     "/api/emails/bulk-move",
     R"({"uids": [1, 3], "from_folder": "Work", "to_folder": "INBOX.Old"})"},
    {"Delete",
     {1, 3},
     MacMailAction::delete_,
     "/api/emails/bulk-delete",
     R"({"uids": [1, 3], "folder": "Work", "permanent": false, "to_folder": "INBOX.Bin"})"},
    {"Junk",
     {1, 3},
     MacMailAction::junk,
     "/api/emails/bulk-move",
     R"({"uids": [1, 3], "from_folder": "Work", "to_folder": "INBOX.Bad"})"},
    {"ReadWhenAnyIsUnread",
     {1, 2},
     MacMailAction::toggleRead,
     "/api/emails/bulk-flag",
     R"({"uids": [1, 2], "folder": "Work", "flag": "seen", "set": true})"},
    {"UnreadWhenAllAreRead",
     {2},
     MacMailAction::toggleRead,
     "/api/emails/bulk-flag",
     R"({"uids": [2], "folder": "Work", "flag": "seen", "set": false})"},
    {"FlagWhenAnyIsNot",
     {1, 2},
     MacMailAction::flag,
     "/api/emails/bulk-flag",
     R"({"uids": [1, 2], "folder": "Work", "flag": "flagged", "set": true})"},
    {"UnflagWhenAllAre",
     {2},
     MacMailAction::flag,
     "/api/emails/bulk-flag",
     R"({"uids": [2], "folder": "Work", "flag": "flagged", "set": false})"},
};

struct Dialog {
    const char *name;
    QString folder;
    EmailListDialog (*make)(const std::shared_ptr<EmailListActions> &actions, qint64 count);
    QString title;
    QStringList choices;
    QByteArray path, body;
};

class Dialogs : public EmailListActionsTest, public testing::WithParamInterface<Dialog> {};

const Dialog dialogs[] = {
    {"Trash",
     u"Work"_s,
     deleteDialog,
     u"Move 2 email(s) to Trash?"_s,
     {u"Move to Trash"_s},
     "/api/emails/bulk-delete",
     R"({"uids": [1, 3], "folder": "Work", "permanent": false, "to_folder": "INBOX.Bin"})"},
    {"Spam",
     u"Work"_s,
     spamDialog,
     u"Mark 2 email(s) as Spam?"_s,
     {u"Mark as Spam"_s},
     "/api/emails/bulk-move",
     R"({"uids": [1, 3], "from_folder": "Work", "to_folder": "INBOX.Bad"})"},
    {"NotSpam",
     u"INBOX.Bad"_s,
     spamDialog,
     u"Mark 2 email(s) as Not Spam?"_s,
     {u"Not Spam — Move to Inbox"_s},
     "/api/emails/bulk-move",
     R"({"uids": [1, 3], "from_folder": "INBOX.Bad", "to_folder": "INBOX"})"},
    {"Block",
     u"Work"_s,
     blockDialog,
     u"Block sender(s) of 2 selected email(s)?"_s,
     {u"Block Sender(s) & Delete"_s, u"Block Entire Domain(s) & Delete"_s},
     "/api/emails/bulk-delete",
     R"({"uids": [1, 3], "folder": "Work", "permanent": true, "to_folder": "Trash"})"},
};

struct Writing {
    const char *name;
    QString entry;
    bool repliesToAll, forwards;
};

class Writings : public EmailListActionsTest, public testing::WithParamInterface<Writing> {};

const Writing writings[] = {{"Reply", u"Reply"_s, false, false},
                            {"ReplyAll", u"Reply All"_s, true, false},
                            {"Forward", u"Forward"_s, false, true}};

} // namespace

TEST_P(RowActionTests, AskTheServer) {
    auto &request = expectPost(GetParam().path);
    entryNamed(menu(GetParam().uid), GetParam().entry).perform();
    settle();
    EXPECT_EQ(parseJSON(request.request().body), parseJSON(GetParam().body));
}

INSTANTIATE_TEST_SUITE_P(, RowActionTests, testing::ValuesIn(rowActions), rowName);

TEST_P(MenuActions, ActOnTheSelection) {
    list->setSelection(GetParam().selection);
    auto &request = expectPost(GetParam().path);
    list->perform(GetParam().action);
    settle();
    EXPECT_EQ(parseJSON(request.request().body), parseJSON(GetParam().body));
}

TEST_P(MenuActions, DoNothingWithoutASelection) {
    list->perform(GetParam().action);
    settle();
    server.assertSilence();
}

INSTANTIATE_TEST_SUITE_P(, MenuActions, testing::ValuesIn(menuActions), rowName);

TEST_P(Dialogs, AskInTheseWordsAndDoIt) {
    if (list->folder->path != GetParam().folder) {
        server.expect("GET", "/api/emails/notification-state?folder=INBOX.Bad").answer(500).anyNumberOfTimes();
        openFolder(folderAt(GetParam().folder));
    }
    list->setSelection({1, 3});
    const auto dialog = GetParam().make(list->actions, 2);
    EXPECT_EQ(dialog.title, GetParam().title);
    QStringList choices;
    for (const auto &choice : dialog.choices)
        choices.append(choice.text);
    EXPECT_EQ(choices, GetParam().choices);
    server.expect("POST", "/api/blocked/add").answer(200).anyNumberOfTimes();
    auto &request = expectPost(GetParam().path);
    dialog.choices.front().perform();
    settle();
    EXPECT_EQ(parseJSON(request.request().body), parseJSON(GetParam().body));
    EXPECT_THAT(uids(), ElementsAre(2));
}

INSTANTIATE_TEST_SUITE_P(, Dialogs, testing::ValuesIn(dialogs), rowName);

TEST_F(EmailListActionsTest, WarnBeforeBlocking) {
    EXPECT_EQ(blockDialog(list->actions, 1).message,
              u"Future emails from blocked senders are permanently deleted — they never reach your inbox or trash. The "
              u"selected email(s) will also be permanently deleted."_s);
    EXPECT_EQ(deleteDialog(list->actions, 1).message, QString());
}

TEST_F(EmailListActionsTest, ListWhatARowOffers) {
    EXPECT_EQ(entryTexts(menu(1)),
              (QStringList{u"Reply"_s, u"Reply All"_s, u"Forward"_s, u"Move to..."_s, u"Move to... > A & B"_s,
                           u"Mark as Spam"_s, u"Block Sender"_s, u"Block Sender > Block ada@x.org"_s,
                           u"Block Sender > Block *@x.org"_s, u"Archive"_s, u"Delete"_s, u"Mark as Read"_s, u"Star"_s,
                           u"View Source"_s}));
    EXPECT_EQ(entryTexts(menu(3)), (QStringList{u"Reply"_s, u"Reply All"_s, u"Forward"_s, u"Move to..."_s,
                                                u"Move to... > A & B"_s, u"Mark as Spam"_s, u"Archive"_s, u"Delete"_s,
                                                u"Mark as Read"_s, u"Star"_s, u"View Source"_s}));
    EXPECT_EQ(entryTexts(moveMenu(*list)), (QStringList{u"A & B"_s, u"Move to Junk"_s, u"Block Sender…"_s}));
}

TEST_F(EmailListActionsTest, OfferTheWayBackOutOfTheJunkFolder) {
    openFolder(folderAt(u"INBOX.Bad"_s, u"spam"_s));
    server.expect("GET", "/api/emails/notification-state?folder=INBOX.Bad").answer(500).anyNumberOfTimes();
    auto &request = expectPost("/api/emails/move");
    entryNamed(menu(1), {u"Not Spam"_s}).perform();
    settle();
    EXPECT_EQ(parseJSON(request.request().body),
              parseJSON(R"({"uid": 1, "from_folder": "INBOX.Bad", "to_folder": "INBOX"})"));
    EXPECT_TRUE(entryTexts(moveMenu(*list)).contains(u"Move to Inbox"_s));
}

TEST_F(EmailListActionsTest, ActOnTheInboxAmongTheFavorites) {
    server.expect("GET", "/api/folders/cached").answer(500);
    server.expect("GET", "/api/emails/list?flagged=1&folder=INBOX&page=1&per_page=50").json(pageJSON(threeEmails));
    list->setFolder(favoritesFolder());
    settle();
    auto &request = expectPost("/api/emails/move");
    entryNamed(menu(1), {u"Mark as Spam"_s}).perform();
    settle();
    EXPECT_EQ(parseJSON(request.request().body),
              parseJSON(R"({"uid": 1, "from_folder": "INBOX", "to_folder": "INBOX.Bad"})"));
    EXPECT_FALSE(entryNamed(menu(2), {u"Move to..."_s}).perform);
    EXPECT_THAT(list->dragData(2), ElementsAre(EmailDragData{2, u"INBOX"_s}));
}

TEST_P(Writings, OpenTheMessageToWriteAbout) {
    const auto before = state->composePresentationID.get();
    server.expect("GET", "/api/emails/read/2?folder=Work").json(R"({"uid": 2, "subject": "Tea"})");
    entryNamed(menu(2), {GetParam().entry}).perform();
    settle();
    EXPECT_TRUE(state->showCompose);
    EXPECT_NE(state->composePresentationID.get(), before);
    EXPECT_EQ(state->composeReplyAll, GetParam().repliesToAll);
    const auto &set = GetParam().forwards ? *state->composeForward : *state->composeReplyTo;
    const auto &unset = GetParam().forwards ? *state->composeReplyTo : *state->composeForward;
    EXPECT_EQ(set->subject, u"Tea"_s);
    EXPECT_FALSE(unset.has_value());
}

TEST_P(Writings, OpenNothingWhenTheMessageCannotBeRead) {
    server.expect("GET", "/api/emails/read/2?folder=Work").answer(404);
    entryNamed(menu(2), {GetParam().entry}).perform();
    settle();
    EXPECT_FALSE(state->showCompose);
}

INSTANTIATE_TEST_SUITE_P(, Writings, testing::ValuesIn(writings), rowName);

TEST_F(EmailListActionsTest, BlockASenderForGood) {
    auto &rule = expectPost("/api/blocked/add");
    auto &deletion = expectPost("/api/emails/delete");
    entryNamed(menu(1), {u"Block Sender"_s, u"Block *@x.org"_s}).perform();
    settle();
    EXPECT_EQ(parseJSON(rule.request().body), parseJSON(R"({"type": "sender", "pattern": "*@x.org"})"));
    EXPECT_EQ(parseJSON(deletion.request().body),
              parseJSON(R"({"uid": 1, "folder": "Work", "permanent": true, "to_folder": "Trash"})"));
    EXPECT_EQ(toastText(), u"Blocked *@x.org — email permanently deleted"_s);
    EXPECT_EQ(list->actions->spamToast.get()->type, ToastType::success);
}

TEST_F(EmailListActionsTest, SayThatBlockingFailed) {
    server.expect("POST", "/api/blocked/add").answer(500);
    entryNamed(menu(1), {u"Block Sender"_s, u"Block ada@x.org"_s}).perform();
    settle();
    EXPECT_EQ(toastText(), u"Could not block sender"_s);
    server.expect("POST", "/api/blocked/add").answer(500);
    list->setSelection({1, 3});
    list->actions->blockSelected(false);
    settle();
    EXPECT_EQ(toastText(), u"Could not block senders"_s);
    EXPECT_EQ(list->actions->spamToast.get()->type, ToastType::error);
    EXPECT_THAT(uids(), ElementsAre(1, 2, 3));
}

TEST_F(EmailListActionsTest, BlockTheSendersOfTheSelection) {
    server.expect("POST", "/api/blocked/add").answer(200).anyNumberOfTimes();
    expectPost("/api/emails/bulk-delete");
    list->setSelection({1, 2, 3});
    list->actions->blockSelected(true);
    settle();
    EXPECT_EQ(toastText(), u"Blocked 2 rule(s) — selected email(s) permanently deleted"_s);
}

TEST_F(EmailListActionsTest, DeleteWhatWasConfirmedAlthoughTheSelectionChanged) {
    auto &rule = server.expect("POST", "/api/blocked/add").held();
    auto &deletion = expectPost("/api/emails/bulk-delete");
    list->setSelection({1});
    list->actions->blockSelected(false);
    rule.request();
    list->setSelection({2, 3});
    answerHeld(rule, "{}");
    settle();
    EXPECT_EQ(parseJSON(deletion.request().body),
              parseJSON(R"({"uids": [1], "folder": "Work", "permanent": true, "to_folder": "Trash"})"));
    EXPECT_THAT(uids(), ElementsAre(2, 3));
}

TEST_F(EmailListActionsTest, TouchNoRowOfAFolderOpenedMeanwhile) {
    auto &change = server.expect("POST", "/api/emails/bulk-delete").held();
    list->setSelection({1, 2});
    list->perform(MacMailAction::delete_);
    change.request();
    server.expect("GET", "/api/emails/cached?folder=Other&page=1&per_page=50").answer(500);
    server.expect("GET", "/api/folders/cached").answer(500);
    expectPage("Other").json(pageJSON(emptyEmails({1, 2, 9}), 3));
    list->setFolder(folderAt(u"Other"_s));
    ASSERT_TRUE(spinUntil([&] { return uids().size() == 3; }));
    list->setSelection({2, 9});
    answerHeld(change, "{}");
    settle();
    EXPECT_THAT(uids(), ElementsAre(1, 2, 9));
    EXPECT_EQ(list->viewModel->totalEmails, 3);
    EXPECT_THAT(*list->viewModel->selectedEmails, ElementsAre(2, 9));
}

TEST_F(EmailListActionsTest, LoseAndDoubleNothingWhenTheConnectionBreaks) {
    auto &change = server.expect("POST", "/api/emails/bulk-move").held();
    list->setSelection({1, 2});
    list->perform(MacMailAction::archive);
    change.request();
    change.close();
    settle();
    EXPECT_EQ(change.arrivals(), 1);
    EXPECT_THAT(uids(), ElementsAre(1, 2, 3));
    EXPECT_THAT(*list->viewModel->selectedEmails, ElementsAre(1, 2));
    EXPECT_EQ(list->viewModel->totalEmails, 120);
    server.assertSilence();
}

TEST_F(EmailListActionsTest, ShowTheSourceOfAMessage) {
    server.expect("GET", "/api/emails/source/2?folder=Work").json(R"({"source": "From: x"})");
    entryNamed(menu(2), {u"View Source"_s}).perform();
    settle();
    const auto first = list->actions->rowSource.get();
    ASSERT_TRUE(first);
    EXPECT_EQ(first->source, u"From: x"_s);
    list->actions->rowSource = std::nullopt;
    server.expect("GET", "/api/emails/source/2?folder=Work").answer(500);
    entryNamed(menu(2), {u"View Source"_s}).perform();
    settle();
    EXPECT_FALSE(list->actions->rowSource.get().has_value());
}

TEST_F(EmailListActionsTest, SwipeInThisOrder) {
    EXPECT_EQ(entryTexts({emailRowActions(*list, email(1)).leading}), (QStringList{u"Read"_s, u"Star"_s}));
    EXPECT_EQ(entryTexts({emailRowActions(*list, email(2)).leading}), (QStringList{u"Unread"_s, u"Unstar"_s}));
    EXPECT_EQ(entryTexts({emailRowActions(*list, email(1)).trailing}), (QStringList{u"Delete"_s, u"Archive"_s}));
}

TEST_F(EmailListActionsTest, DragOneRowOrTheSelection) {
    EXPECT_THAT(list->dragData(1), ElementsAre(EmailDragData{1, u"Work"_s}));
    list->setSelection({3, 1});
    EXPECT_THAT(list->dragData(3), ElementsAre(EmailDragData{1, u"Work"_s}, EmailDragData{3, u"Work"_s}));
    EXPECT_THAT(list->dragData(2), ElementsAre(EmailDragData{2, u"Work"_s}));
}

TEST_F(EmailListActionsTest, DeselectWhatWasDropped) {
    list->setSelection({1, 2, 3});
    list->noteDropped({{1, u"Work"_s}, {2, u"Work"_s}, {3, u"Work"_s}});
    EXPECT_THAT(*list->viewModel->selectedEmails, IsEmpty());
    list->setSelection({3});
    list->noteDropped({{1, u"Work"_s}});
    EXPECT_EQ(openUID(), 3);
}

TEST_F(EmailListActionsTest, LeadFromTheMenuBarToTheSearchAndADialog) {
    list->perform(MacMailAction::search);
    EXPECT_TRUE(list->searchFocused);
    list->perform(MacMailAction::block);
    EXPECT_TRUE(list->actions->showBlockConfirm);
    list->perform(MacMailAction::reply);
    expectPage("Work").json(pageJSON(threeEmails));
    list->perform(MacMailAction::refresh);
    settle();
}
