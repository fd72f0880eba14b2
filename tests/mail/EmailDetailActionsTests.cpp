#include "mail/EmailDetailFixture.h"
#include "mail/FlagChanges.h"
#include "mail/MailboxViewModel.h"
#include "mail/MenuFinder.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Content = EmailDetailState::Content;

namespace {

MailFolder folderOfType(const QString &path, const QString &type) {
    return {.path = path, .name = path, .type = type};
}

/// A message on a server whose special folders have names of their own.
class EmailDetailActionsTest : public EmailDetailStateTest {
protected:
    void SetUp() override {
        EmailDetailStateTest::SetUp();
        server.expect("GET", "/api/emails/notification-state?folder=Bad").answer(500).anyNumberOfTimes();
        state->folders = {folderOfType(u"Old"_s, u"archive"_s), folderOfType(u"Bin"_s, u"trash"_s),
                          folderOfType(u"Bad"_s, u"spam"_s)};
    }
    void openIn(const QByteArray &folder, const QByteArray &fields) {
        server.expect("GET", "/api/emails/read/7?folder=" + folder).json("{\"uid\": 7" + fields + "}");
        screen->show(EmailWindowRef{7, QString::fromUtf8(folder)});
        settle();
    }
    FakeExchange &expectPost(const QByteArray &path) { return server.expect("POST", path); }
    static QJsonValue body(FakeExchange &exchange) { return parseJSON(exchange.request().body); }
    QString toast() const { return screen->spamToast->value_or(ToastMessage()).message; }
    ToastType toastType() const { return screen->spamToast->value_or(ToastMessage()).type; }
    bool shows(qint64 uid) const {
        return screen->content() == Content::message && screen->viewModel->email.get()->uid == uid;
    }
};

const QByteArray fromAda = R"(, "from": [{"name": "Ada", "email": "Ada@X.org"}])";
const QString moveFailure = u"Could not move this message. Please try again."_s;

struct ActionRow {
    const char *name;
    QByteArray folder, fields;
    MacMailAction action;
    QByteArray path, body;
    bool moves;
};

class PostingActions : public EmailDetailActionsTest, public testing::WithParamInterface<ActionRow> {};

const ActionRow postingActions[] = {
    {"Archive", "INBOX", "", MacMailAction::archive, "/api/emails/move",
     R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Old"})", true},
    {"Delete", "INBOX", "", MacMailAction::delete_, "/api/emails/move",
     R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Bin"})", true},
    {"Junk", "INBOX", "", MacMailAction::junk, "/api/emails/move",
     R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Bad"})", true},
    {"NotJunk", "Bad", "", MacMailAction::junk, "/api/emails/move",
     R"({"uid": 7, "from_folder": "Bad", "to_folder": "INBOX"})", true},
    {"Read", "INBOX", "", MacMailAction::toggleRead, "/api/emails/flag",
     R"({"uid": 7, "folder": "INBOX", "flag": "seen", "set": true})", false},
    {"Unread", "INBOX", R"(, "seen": true)", MacMailAction::toggleRead, "/api/emails/flag",
     R"({"uid": 7, "folder": "INBOX", "flag": "seen", "set": false})", false},
    {"Flag", "INBOX", R"(, "flagged": false)", MacMailAction::flag, "/api/emails/flag",
     R"({"uid": 7, "folder": "INBOX", "flag": "flagged", "set": true})", false},
    {"Unflag", "INBOX", R"(, "flagged": true)", MacMailAction::flag, "/api/emails/flag",
     R"({"uid": 7, "folder": "INBOX", "flag": "flagged", "set": false})", false},
};

struct ComposeRow {
    const char *name;
    MacMailAction action;
    bool replies, repliesToAll;
};

class ComposeActions : public EmailDetailActionsTest, public testing::WithParamInterface<ComposeRow> {};

const ComposeRow composeActions[] = {
    {"Reply", MacMailAction::reply, true, false},
    {"ReplyAll", MacMailAction::replyAll, true, true},
    {"Forward", MacMailAction::forward, false, false},
};

struct BlockRow {
    const char *name;
    QByteArray from;
    bool byDomain;
    /// Empty when nobody is blocked.
    QByteArray pattern;
};

class Blocking : public EmailDetailActionsTest, public testing::WithParamInterface<BlockRow> {};

const BlockRow blockings[] = {
    {"Address", R"([{"email": "Ada@X.org", "address": "b@y.org"}])", false, "ada@x.org"},
    {"SecondSpelling", R"([{"address": "B@y.org"}])", false, "b@y.org"},
    {"Domain", R"([{"email": "Ada@X.org"}])", true, "*@x.org"},
    {"LastPieceOfAnAddress", R"([{"email": "\"a@b\"@X.org"}])", true, "*@x.org"},
    {"NoAddress", R"([{"email": "Ada"}])", false, ""},
    {"Nobody", R"([])", true, ""},
    {"NoDomain", R"([{"email": "@"}])", true, ""},
};

struct ScoreRow {
    const char *name;
    QByteArray score;
    bool isSpam;
    QString toast;
};

class Scores : public EmailDetailActionsTest, public testing::WithParamInterface<ScoreRow> {};

const ScoreRow scores[] = {
    {"Threshold", "0.8", true, u"Spam detected (score: 80%) — moved to Spam"_s},
    {"Below", "0.79", false, u"Not spam (score: 79%)"_s},
    {"High", "0.95", true, u"Spam detected (score: 95%) — moved to Spam"_s},
    {"None", "0", false, u"Not spam (score: 0%)"_s},
};

struct CandidateRow {
    const char *name;
    QByteArray fields, candidate;
};

class Candidates : public EmailDetailActionsTest, public testing::WithParamInterface<CandidateRow> {};

const CandidateRow candidates[] = {
    {"Whole",
     R"(, "subject": "Re:", "from": [{"name": "Ada", "email": "a@x.org"}], "body_text": "t", "body_html": "h")",
     R"({"subject": "Re:", "from": "Ada <a@x.org>", "body": "t"})"},
    {"HTML", R"(, "body_html": "<p>h")", R"({"subject": "", "from": "", "body": "<p>h"})"},
    {"Bare", "", R"({"subject": "", "from": ""})"},
};

struct MenuRow {
    const char *name;
    QByteArray user, fields;
    QStringList entries;
};

class MoreMenu : public EmailDetailActionsTest, public testing::WithParamInterface<MenuRow> {};

const QByteArray plainUser = R"({"_id": "u1", "username": "anna"})";

const MenuRow menus[] = {
    {"Unread", plainUser, fromAda, {u"Mark as Read"_s, u"Block ada@x.org"_s, u"Block *@x.org"_s, u"View Source"_s}},
    {"ReadFromNobody",
     plainUser,
     R"(, "seen": true, "from": [{"email": "Ada"}])",
     {u"Mark as Unread"_s, u"View Source"_s}},
    {"LocalModel",
     R"({"_id": "u1", "username": "anna", "ai_provider": "ollama"})",
     "",
     {u"Mark as Read"_s, u"Check Spam (AI)"_s, u"View Source"_s}},
    {"KeyIsMissing",
     R"({"_id": "u1", "username": "anna", "ai_provider": "openai"})",
     "",
     {u"Mark as Read"_s, u"View Source"_s}},
};

} // namespace

TEST_P(PostingActions, TellTheServer) {
    const auto &row = GetParam();
    openIn(row.folder, row.fields);
    auto &post = expectPost(row.path).answer(200);
    screen->perform(row.action);
    settle();
    EXPECT_EQ(body(post), parseJSON(row.body));
    EXPECT_EQ(screen->content(), row.moves ? Content::moved : Content::message);
    EXPECT_EQ(state->emailsChangedInFolder.get(),
              row.moves ? std::optional(QString::fromUtf8(row.folder)) : std::nullopt);
    EXPECT_EQ(toast(), QString());
}

TEST_P(PostingActions, LeaveTheMessageWhenTheServerRefuses) {
    const auto &row = GetParam();
    openIn(row.folder, row.fields);
    const auto before = screen->viewModel->email.get();
    expectPost(row.path).json(R"({"error": "No"})", 500);
    screen->perform(row.action);
    settle();
    EXPECT_EQ(screen->viewModel->email.get(), before);
    EXPECT_EQ(screen->content(), Content::message);
    EXPECT_EQ(state->emailsChangedInFolder.get(), std::nullopt);
    EXPECT_EQ(toast(), row.moves ? moveFailure : QString());
    EXPECT_EQ(toastType(), row.moves ? ToastType::error : ToastType::info);
}

INSTANTIATE_TEST_SUITE_P(, PostingActions, testing::ValuesIn(postingActions), rowName);

TEST_F(EmailDetailActionsTest, ShowFlagsAtOnce) {
    openIn("INBOX", R"(, "seen": true)");
    EXPECT_TRUE(screen->isSeen());
    EXPECT_FALSE(screen->isFlagged());
    for (const auto action : {MacMailAction::toggleRead, MacMailAction::flag}) {
        expectPost("/api/emails/flag").answer(200);
        screen->perform(action);
        settle();
    }
    EXPECT_FALSE(screen->isSeen());
    EXPECT_TRUE(screen->isFlagged());
}

TEST_F(EmailDetailActionsTest, NeverTouchAMessageThatWasOpenedMeanwhile) {
    openIn("INBOX", "");
    auto &move = expectPost("/api/emails/move").held();
    auto &flag = expectPost("/api/emails/flag").held();
    screen->perform(MacMailAction::archive);
    screen->perform(MacMailAction::flag);
    move.request();
    flag.request();
    expectRead(8).json(R"({"uid": 8})");
    show(8);
    ASSERT_TRUE(spinUntil([this] { return shows(8); }));
    answerHeld(move, "{}");
    answerHeld(flag, "{}");
    settle();
    EXPECT_TRUE(shows(8));
    EXPECT_FALSE(screen->isFlagged());
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"INBOX"_s);
}

TEST_F(EmailDetailActionsTest, DoNothingWithoutAMessage) {
    const auto every = {MacMailAction::refresh, MacMailAction::search,   MacMailAction::archive,
                        MacMailAction::delete_, MacMailAction::flag,     MacMailAction::toggleRead,
                        MacMailAction::junk,    MacMailAction::block,    MacMailAction::reply,
                        MacMailAction::forward, MacMailAction::replyAll, MacMailAction::source};
    openIn("INBOX", fromAda);
    screen->show(std::nullopt);
    for (const auto action : every)
        screen->perform(action);
    screen->checkSpam();
    screen->block(false);
    for (const auto uid : {7, 8})
        Q_EMIT FlagChanges::shared().changed(u"INBOX"_s, {uid}, u"flagged"_s, true);
    settle();
    EXPECT_FALSE(screen->isFlagged());
    EXPECT_FALSE(state->showCompose);
    EXPECT_FALSE(screen->showBlockConfirmation);
    EXPECT_TRUE(screen->moreEntries().empty());
    server.assertSilence();
}

TEST_P(ComposeActions, HandTheMessageToTheWriter) {
    openIn("INBOX", R"(, "body_text": "x")");
    const auto former = state->composePresentationID.get();
    screen->perform(GetParam().action);
    EXPECT_TRUE(state->showCompose);
    EXPECT_NE(state->composePresentationID.get(), former);
    EXPECT_EQ(state->composeReplyTo.get().has_value(), GetParam().replies);
    EXPECT_EQ(state->composeForward.get().has_value(), !GetParam().replies);
    EXPECT_EQ(state->composeReplyAll.get(), GetParam().repliesToAll);
    const auto &handed = GetParam().replies ? state->composeReplyTo.get() : state->composeForward.get();
    EXPECT_EQ(handed->body_text, u"x"_s);
}

INSTANTIATE_TEST_SUITE_P(, ComposeActions, testing::ValuesIn(composeActions), rowName);

TEST_F(EmailDetailActionsTest, ReplyAfterReplyAllGoesToTheSenderAlone) {
    openIn("INBOX", "");
    screen->perform(MacMailAction::replyAll);
    screen->perform(MacMailAction::reply);
    EXPECT_FALSE(state->composeReplyAll);
}

TEST_P(Blocking, AddsARuleAndDeletesTheMessage) {
    const auto &row = GetParam();
    openIn("INBOX", ", \"from\": " + row.from);
    QSignalSpy dismissed(screen.get(), &EmailDetailState::dismissRequested);
    if (row.pattern.isEmpty()) {
        screen->block(row.byDomain);
        settle();
        server.assertSilence();
        EXPECT_TRUE(dismissed.isEmpty());
        return;
    }
    auto &rule = expectPost("/api/blocked/add").answer(200);
    auto &deletion = expectPost("/api/emails/delete").answer(200);
    screen->block(row.byDomain);
    settle();
    EXPECT_EQ(body(rule), parseJSON(R"({"type": "sender", "pattern": ")" + row.pattern + "\"}"));
    EXPECT_EQ(body(deletion), parseJSON(R"({"uid": 7, "folder": "INBOX", "permanent": true, "to_folder": "Trash"})"));
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"INBOX"_s);
    EXPECT_EQ(dismissed.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(, Blocking, testing::ValuesIn(blockings), rowName);

TEST_F(EmailDetailActionsTest, StayWhenTheSenderCannotBeBlocked) {
    openIn("INBOX", fromAda);
    QSignalSpy dismissed(screen.get(), &EmailDetailState::dismissRequested);
    expectPost("/api/blocked/add").json(R"({"error": "Too many rules"})", 400);
    screen->block(false);
    settle();
    EXPECT_EQ(toast(), u"Could not block: Too many rules"_s);
    EXPECT_EQ(toastType(), ToastType::error);
    EXPECT_TRUE(dismissed.isEmpty());
    EXPECT_TRUE(shows(7));
}

TEST_F(EmailDetailActionsTest, CloseAlthoughTheBlockedMessageCannotBeDeleted) {
    openIn("INBOX", fromAda);
    QSignalSpy dismissed(screen.get(), &EmailDetailState::dismissRequested);
    expectPost("/api/blocked/add").answer(200);
    expectPost("/api/emails/delete").answer(500);
    screen->block(false);
    settle();
    EXPECT_EQ(toast(), QString());
    EXPECT_EQ(dismissed.count(), 1);
}

TEST_F(EmailDetailActionsTest, BlockingARelatedMessageLeadsBack) {
    openIn("INBOX", "");
    expectRead(5).json(R"({"uid": 5)" + fromAda + "}");
    screen->openRelated(5);
    settle();
    QSignalSpy dismissed(screen.get(), &EmailDetailState::dismissRequested);
    expectPost("/api/blocked/add").answer(200);
    expectPost("/api/emails/delete").answer(200);
    screen->pushed.get()->block(false);
    settle();
    EXPECT_FALSE(screen->pushed.get());
    EXPECT_TRUE(dismissed.isEmpty());
}

TEST_P(Scores, DecideWhetherTheMessageMoves) {
    openIn("INBOX", "");
    expectPost("/api/ai/spam-check").json(R"({"scores": [{"index": 0, "spam_score": )" + GetParam().score + "}]}");
    FakeExchange *move = GetParam().isSpam ? &expectPost("/api/emails/move").answer(200) : nullptr;
    screen->checkSpam();
    EXPECT_TRUE(screen->isCheckingSpam);
    settle();
    EXPECT_FALSE(screen->isCheckingSpam);
    if (move) {
        EXPECT_EQ(body(*move), parseJSON(R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Bad"})"));
    }
    EXPECT_EQ(toast(), GetParam().toast);
    EXPECT_EQ(toastType(), GetParam().isSpam ? ToastType::warning : ToastType::success);
    EXPECT_TRUE(shows(7));
}

INSTANTIATE_TEST_SUITE_P(, Scores, testing::ValuesIn(scores), rowName);

TEST_P(Candidates, HoldWhatTheMessageHas) {
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=re:").answer(500).anyNumberOfTimes();
    openIn("INBOX", GetParam().fields);
    auto &check = expectPost("/api/ai/spam-check").json("{}");
    screen->checkSpam();
    settle();
    EXPECT_EQ(body(check), parseJSON(R"({"emails": [)" + GetParam().candidate + "]}"));
    EXPECT_EQ(screen->spamToast.get(), std::nullopt);
    EXPECT_FALSE(screen->isCheckingSpam);
}

INSTANTIATE_TEST_SUITE_P(, Candidates, testing::ValuesIn(candidates), rowName);

TEST_F(EmailDetailActionsTest, SayWhyTheSpamCheckFailed) {
    openIn("INBOX", "");
    expectPost("/api/ai/spam-check").json(R"({"error": "No model", "scores": [{"index": 0, "spam_score": 1}]})");
    screen->checkSpam();
    settle();
    EXPECT_EQ(toast(), u"Spam check failed: No model"_s);
    EXPECT_EQ(toastType(), ToastType::error);
    EXPECT_FALSE(screen->isCheckingSpam);
}

TEST_F(EmailDetailActionsTest, SayThatSpamCouldNotBeMoved) {
    openIn("INBOX", "");
    expectPost("/api/ai/spam-check").json(R"({"scores": [{"index": 0, "spam_score": 1}]})");
    expectPost("/api/emails/move").answer(500);
    screen->checkSpam();
    settle();
    EXPECT_EQ(toast(), moveFailure);
    EXPECT_EQ(toastType(), ToastType::error);
    EXPECT_FALSE(screen->isCheckingSpam);
}

TEST_F(EmailDetailActionsTest, MoveTheMessageThatWasCheckedAndNoOther) {
    openIn("INBOX", "");
    auto &check = expectPost("/api/ai/spam-check").held();
    screen->checkSpam();
    check.request();
    expectRead(8).json(R"({"uid": 8})");
    show(8);
    ASSERT_TRUE(spinUntil([this] { return shows(8); }));
    auto &move = expectPost("/api/emails/move").answer(200);
    answerHeld(check, R"({"scores": [{"index": 0, "spam_score": 1}]})");
    settle();
    EXPECT_EQ(body(move), parseJSON(R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Bad"})"));
}

TEST_P(MoreMenu, OffersWhatTheMessageAllows) {
    beginSession(GetParam().user);
    openIn("INBOX", GetParam().fields);
    EXPECT_EQ(entryTexts({screen->moreEntries()}), GetParam().entries);
}

INSTANTIATE_TEST_SUITE_P(, MoreMenu, testing::ValuesIn(menus), rowName);

TEST_F(EmailDetailActionsTest, BlockFromTheMenuWithoutAsking) {
    openIn("INBOX", fromAda);
    auto &rule = expectPost("/api/blocked/add").answer(200);
    expectPost("/api/emails/delete").answer(200);
    const auto entry = entryNamed({screen->moreEntries()}, {u"Block *@x.org"_s});
    EXPECT_TRUE(entry.isDestructive);
    entry.perform();
    settle();
    EXPECT_EQ(body(rule), parseJSON(R"({"type": "sender", "pattern": "*@x.org"})"));
    EXPECT_FALSE(screen->showBlockConfirmation);
}

TEST_F(EmailDetailActionsTest, ShowTheSourceOnceItIsThere) {
    openIn("INBOX", "");
    auto &source = server.expect("GET", "/api/emails/source/7?folder=INBOX").held();
    screen->perform(MacMailAction::source);
    source.request();
    EXPECT_FALSE(screen->showSourceSheet);
    answerHeld(source, R"({"source": "Subject: x"})");
    settle();
    EXPECT_TRUE(screen->showSourceSheet);
    EXPECT_EQ(screen->viewModel->rawSource.get(), u"Subject: x"_s);
}

TEST_F(EmailDetailActionsTest, AskBeforeBlockingFromTheMenuBar) {
    openIn("INBOX", fromAda);
    screen->perform(MacMailAction::block);
    EXPECT_TRUE(screen->showBlockConfirmation);
    server.assertSilence();
}

TEST_F(EmailDetailActionsTest, SaveAttachmentsThroughWhoeverShowsThem) {
    openIn("INBOX", "");
    screen->perform(MacMailAction::saveAttachments);
    int saves = 0;
    screen->saveAllAttachments = [&] { ++saves; };
    screen->perform(MacMailAction::saveAttachments);
    EXPECT_EQ(saves, 1);
}

TEST_F(EmailDetailActionsTest, FlagIsSeenWhereverTheMessageIsOpen) {
    openIn("INBOX", "");
    const auto other = EmailDetailState::make(state), elsewhere = EmailDetailState::make(state);
    const auto openElsewhere = [this](EmailDetailState &window, const QString &folder) {
        server.expect("GET", "/api/emails/read/7?folder=" + folder.toUtf8()).json(R"({"uid": 7})");
        window.show(EmailWindowRef{7, folder});
        settle();
    };
    openElsewhere(*other, u"INBOX"_s);
    openElsewhere(*elsewhere, u"Bad"_s);
    expectPost("/api/emails/flag").answer(200);
    other->perform(MacMailAction::flag);
    settle();
    EXPECT_TRUE(screen->isFlagged());
    EXPECT_TRUE(other->isFlagged());
    EXPECT_FALSE(elsewhere->isFlagged());

    const auto list = std::make_shared<MailboxViewModel>();
    list->loadedFolder = u"INBOX"_s;
    list->selectedEmails = {7};
    expectPost("/api/emails/bulk-flag").answer(200);
    await(list->bulkMarkRead(u"INBOX"_s));
    EXPECT_TRUE(screen->isSeen());
    EXPECT_FALSE(elsewhere->isSeen());
}
