#include "mail/EmailListFixture.h"

#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using Content = EmailListState::Content;

namespace {

struct EmptyFolder {
    const char *name;
    MailFolder folder;
    ViewTexts texts;
};

class EmptyFolders : public EmailListTest, public testing::WithParamInterface<EmptyFolder> {};

const ViewTexts noSpam{u"exclamationmark.shield"_s, u"No spam"_s, u"Messages marked as spam will appear here"_s};

const EmptyFolder emptyFolders[] = {
    {"Inbox", folderAt(u"INBOX"_s), {u"tray"_s, u"Your inbox is empty"_s, u"Emails you receive will appear here"_s}},
    {"Favorites", folderAt(u"__favorites"_s), {u"star"_s, u"No favorites"_s, u"Star emails to see them here"_s}},
    {"Sent", folderAt(u"Sent"_s), {u"paperplane"_s, u"No sent emails"_s, u"Messages you send will appear here"_s}},
    {"Drafts", folderAt(u"Drafts"_s), {u"doc.text"_s, u"No drafts"_s, u"Emails you save as drafts will appear here"_s}},
    {"Trash", folderAt(u"Trash"_s), {u"trash"_s, u"Trash is empty"_s, u"Items you delete will appear here"_s}},
    {"Spam", folderAt(u"Spam"_s), noSpam},
    {"Junk", folderAt(u"Junk"_s), noSpam},
    {"Archive",
     folderAt(u"Archive"_s),
     {u"archivebox"_s, u"Archive is empty"_s, u"Archived emails will appear here"_s}},
    {"ByName",
     {.path = u"INBOX.Trash"_s, .name = u"Trash"_s},
     {u"trash"_s, u"Trash is empty"_s, u"Items you delete will appear here"_s}},
    {"PathBeforeName", {.path = u"Junk"_s, .name = u"Trash"_s}, noSpam},
    {"Other", folderAt(u"inbox"_s), {u"folder.fill"_s, u"This folder is empty"_s, u"No messages found"_s}},
};

struct ChangeSignal {
    const char *name;
    QString shown, changed;
    bool reloads;
};

class ChangeSignals : public EmailListTest, public testing::WithParamInterface<ChangeSignal> {};

const ChangeSignal changeSignals[] = {
    {"OtherCase", u"INBOX"_s, u"inbox"_s, true},
    {"Favorites", u"__favorites"_s, u"Inbox"_s, true},
    {"OtherFolder", u"INBOX"_s, u"Work"_s, false},
    {"FavoritesPath", u"__favorites"_s, u"__favorites"_s, false},
};

} // namespace

TEST_F(EmailListTest, ShowsTheSkeletonUntilTheFirstLoadHasEnded) {
    EXPECT_EQ(list->content(), Content::skeleton);
    expectStart("Work");
    auto &live = expectPage("Work").held();
    list->setFolder(folderAt(u"Work"_s));
    EXPECT_EQ(list->content(), Content::skeleton);
    live.request();
    EXPECT_EQ(list->content(), Content::skeleton);
    answerHeld(live, pageJSON("", 0, 0));
    settle();
    EXPECT_EQ(list->content(), Content::empty);
    EXPECT_EQ(list->loadedFolderPath.get(), u"Work"_s);
    EXPECT_THAT(*list->contextMenuFolders, ElementsAre(folderAt(u"Work"_s)));
}

TEST_F(EmailListTest, ShowsTheSkeletonAgainWhileAnEmptyFolderReloads) {
    open({}, 0, 0);
    server.expect("GET", "/api/emails/cached?folder=Work&page=1&per_page=50").answer(500);
    auto &live = expectPage("Work").held();
    list->reload();
    live.request();
    EXPECT_EQ(list->content(), Content::skeleton);
    answerHeld(live, pageJSON(emptyEmails({1})));
    settle();
    EXPECT_EQ(list->content(), Content::rows);
}

TEST_F(EmailListTest, ShowsWhyTheFirstLoadFailed) {
    expectStart("Work");
    expectPage("Work").json(R"({"error": "Mailbox is locked"})", 503);
    list->setFolder(folderAt(u"Work"_s));
    settle();
    EXPECT_EQ(list->content(), Content::failure);
    EXPECT_EQ(list->placeholder(),
              (ViewTexts{u"exclamationmark.triangle"_s, u"Could not load emails"_s, u"Mailbox is locked"_s}));
    list->viewModel->errorMessage = QString();
    EXPECT_EQ(list->placeholder().message, u"An error occurred. Pull down to retry."_s);
}

TEST_F(EmailListTest, KeepsTheRowsWhenARefreshFails) {
    open({1, 2});
    expectPage("Work").answer(500);
    list->reload();
    settle();
    EXPECT_EQ(list->content(), Content::rows);
    EXPECT_THAT(uids(), ElementsAre(1, 2));
}

TEST_P(EmptyFolders, HaveWordsOfTheirOwn) {
    list->folder = GetParam().folder;
    EXPECT_EQ(list->placeholder(), GetParam().texts);
}

INSTANTIATE_TEST_SUITE_P(, EmptyFolders, testing::ValuesIn(emptyFolders), rowName);

TEST_F(EmailListTest, ForgetsTheFormerFolderAtOnce) {
    open({1, 2}, 120, 3);
    list->viewModel->currentPage = 3;
    list->viewModel->filterLastDays = 7;
    list->viewModel->searchQuery = u"x"_s;
    list->setSelection({1});
    expectStart("Other");
    auto &live = expectPage("Other").held();
    list->setFolder(folderAt(u"Other"_s));
    deliverQueuedEvents();
    EXPECT_EQ(list->content(), Content::skeleton);
    EXPECT_THAT(uids(), IsEmpty());
    EXPECT_THAT(*list->viewModel->selectedEmails, IsEmpty());
    EXPECT_EQ(*list->viewModel->searchQuery, QString());
    EXPECT_FALSE(list->viewModel->hasActiveFilters());
    EXPECT_EQ(list->loadedFolderPath.get(), std::nullopt);
    answerHeld(live, pageJSON(emptyEmails({9})));
    settle();
    EXPECT_THAT(uids(), ElementsAre(9));
}

TEST_F(EmailListTest, DropsTheAnswerOfTheFormerFolder) {
    server.expect("GET", "/api/emails/cached?folder=Work&page=1&per_page=50").answer(500);
    auto &former = expectPage("Work").held();
    list->setFolder(folderAt(u"Work"_s));
    former.request();
    expectStart("Other");
    auto &live = expectPage("Other").held();
    list->setFolder(folderAt(u"Other"_s));
    answerHeld(former, pageJSON(emptyEmails({1})));
    live.request();
    ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 1; }));
    deliverQueuedEvents();
    EXPECT_EQ(list->content(), Content::skeleton);
    EXPECT_EQ(list->loadedFolderPath.get(), std::nullopt);
    answerHeld(live, pageJSON("", 0, 0));
    settle();
    EXPECT_EQ(list->content(), Content::empty);
    EXPECT_EQ(list->loadedFolderPath.get(), u"Other"_s);
}

TEST_F(EmailListTest, TakesTheNewCountsOfItsFolderWithoutALoad) {
    open({1});
    list->setFolder({.path = u"Work"_s, .name = u"Renamed"_s, .unseen = 3});
    settle();
    EXPECT_EQ(list->folder->name, u"Renamed"_s);
    server.assertSilence();
}

TEST_F(EmailListTest, AsksForTheFlaggedOnesOfTheInboxInFavorites) {
    server.expect("GET", "/api/folders/cached").answer(500);
    server.expect("GET", "/api/emails/list?flagged=1&folder=INBOX&page=1&per_page=50")
        .json(pageJSON(emptyEmails({4}), 120, 3));
    list->setFolder({.path = u"__favorites"_s, .name = u"Favorites"_s, .type = u"starred"_s});
    settle();
    EXPECT_THAT(uids(), ElementsAre(4));
    EXPECT_TRUE(list->showsStars());
    EXPECT_THAT(*list->contextMenuFolders, IsEmpty());
    server.expect("GET", "/api/emails/list?flagged=1&folder=INBOX&page=2&per_page=50")
        .json(pageJSON(emptyEmails({5}), 120, 3));
    list->nextPage();
    settle();
    EXPECT_THAT(uids(), ElementsAre(5));
}

TEST_F(EmailListTest, NeedsAFolderForAReload) {
    list->reload();
    settle();
    server.assertSilence();
}

TEST_F(EmailListTest, SearchesOnceAfterTheLastOfSeveralLetters) {
    open({1, 2}, 120, 3);
    list->viewModel->currentPage = 2;
    for (const auto &text : {u"a"_s, u"ab"_s, u"abc"_s}) {
        clock.advance(200ms);
        list->setSearchQuery(text);
    }
    clock.advance(299ms);
    server.assertSilence();
    auto &search = expectPage("Work", "&search=abc").json(pageJSON(emptyEmails({2})));
    clock.advance(1ms);
    settle();
    EXPECT_TRUE(search.hasArrived());
    EXPECT_THAT(uids(), ElementsAre(2));
    clock.advance(10s);
    server.assertSilence();
}

TEST_F(EmailListTest, SearchesForNothingNewWhenTheTextIsAsBefore) {
    open({1});
    type(u"a"_s);
    list->setSearchQuery(QString());
    clock.advance(10s);
    server.assertSilence();
}

TEST_F(EmailListTest, SearchesAtOnceOnReturnAndAgainWhenTheWaitIsOver) {
    open({1}, 120, 3);
    list->viewModel->currentPage = 2;
    type(u"ab"_s);
    auto &atOnce = expectPage("Work", "&search=ab").json(pageJSON(emptyEmails({1})));
    list->submitSearch();
    ASSERT_TRUE(spinUntil([&] { return atOnce.hasArrived() && !list->viewModel->isRefreshing; }));
    auto &afterwards = expectPage("Work", "&search=ab").json(pageJSON(emptyEmails({1})));
    clock.advance(300ms);
    settle();
    EXPECT_EQ(afterwards.arrivals(), 1);
    expectPage("Work", "&search=ab").json(pageJSON(emptyEmails({1})));
    list->submitSearch();
    settle();
    server.assertSilence();
}

TEST_F(EmailListTest, DoesNotSearchAnotherFolderForWhatWasTypedInTheFormer) {
    open({1});
    type(u"ab"_s);
    expectStart("Other");
    expectPage("Other").json(pageJSON("", 0, 0));
    list->setFolder(folderAt(u"Other"_s));
    settle();
    clock.advance(10s);
    server.assertSilence();
}

TEST_F(EmailListTest, SearchesNoMoreWhenTheScreenIsClosed) {
    open({1});
    type(u"ab"_s);
    list.reset();
    EXPECT_TRUE(tasksHaveEnded());
    clock.advance(10s);
    server.assertSilence();
}

TEST_P(ChangeSignals, ReloadTheFirstPageOfTheirFolder) {
    server.expect("GET", "/api/emails/cached?folder=INBOX&page=1&per_page=50").answer(500).anyNumberOfTimes();
    server.expect("GET", "/api/folders/cached").answer(500);
    const bool isFavorites = GetParam().shown == u"__favorites"_s;
    const QByteArray query = isFavorites ? "flagged=1&folder=INBOX" : "folder=INBOX";
    auto &loads = server.expect("GET", "/api/emails/list?" + query + "&page=1&per_page=50")
                      .json(pageJSON(emptyEmails({1}), 120, 3))
                      .anyNumberOfTimes();
    list->setFolder(folderAt(GetParam().shown));
    settle();
    list->viewModel->currentPage = 3;
    state->emailsChangedInFolder = GetParam().changed;
    deliverQueuedEvents();
    settle();
    EXPECT_EQ(loads.arrivals(), GetParam().reloads ? 2 : 1);
    EXPECT_EQ(list->viewModel->currentPage, GetParam().reloads ? 1 : 3);
    EXPECT_EQ(state->emailsChangedInFolder.get().has_value(), !GetParam().reloads);
}

INSTANTIATE_TEST_SUITE_P(, ChangeSignals, testing::ValuesIn(changeSignals), rowName);

TEST_F(EmailListTest, ReloadsForTheFirstOfTwoFoldersThatChangeInOneTurn) {
    open({1});
    expectPage("Work").json(pageJSON(emptyEmails({2})));
    receive(u"emails_changed"_s, R"({"folder": "Work"})");
    receive(u"emails_changed"_s, R"({"folder": "Trash"})");
    settle();
    EXPECT_THAT(uids(), ElementsAre(2));
}

TEST_F(EmailListTest, CountsRemovedMessagesOnceWhenTheirFolderIsSignalledMeanwhile) {
    open({1, 2, 3}, 160, 4);
    server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500);
    auto &removal = server.expect("POST", "/api/emails/bulk-delete").held();
    list->setSelection({1, 2});
    list->perform(MacMailAction::delete_);
    removal.request();
    receive(u"emails_changed"_s, R"({"folder": "Work"})");
    receive(u"emails_changed"_s, R"({"folder": "Work"})");
    server.assertSilence();
    expectPage("Work").json(pageJSON(emptyEmails({3}), 158, 4));
    answerHeld(removal, "{}");
    settle();
    EXPECT_EQ(list->viewModel->totalEmails, 158);
}

TEST_F(EmailListTest, GoesOnHearingOfAFolderThatWasSignalledTwiceInOneTurn) {
    open({1});
    expectPage("Work").json(pageJSON(emptyEmails({2})));
    expectPage("Work").json(pageJSON(emptyEmails({2})));
    receive(u"emails_changed"_s, R"({"folder": "Work"})");
    receive(u"emails_changed"_s, R"({"folder": "Work"})");
    settle();
    EXPECT_EQ(state->emailsChangedInFolder.get(), std::nullopt);
    expectPage("Work").json(pageJSON(emptyEmails({3})));
    receive(u"emails_changed"_s, R"({"folder": "Work"})");
    settle();
    EXPECT_THAT(uids(), ElementsAre(3));
}

TEST_F(EmailListTest, ReadsTheFolderOnceThatChangedBeforeItWasOpened) {
    open({1});
    state->emailsChangedInFolder = u"Other"_s;
    settle();
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"Other"_s);
    expectStart("Other");
    auto &page = expectPage("Other").json(pageJSON(emptyEmails({2})));
    list->setFolder(folderAt(u"Other"_s));
    settle();
    EXPECT_EQ(page.arrivals(), 1);
    EXPECT_EQ(state->emailsChangedInFolder.get(), std::nullopt);
    expectPage("Other").json(pageJSON(emptyEmails({3})));
    receive(u"emails_changed"_s, R"({"folder": "Other"})");
    settle();
    EXPECT_THAT(uids(), ElementsAre(3));
}

TEST_F(EmailListTest, ReadsThePageAgainAfterATimeWithoutEvents) {
    state->sseClient.isConnected = true;
    open({1}, 120, 3);
    list->viewModel->currentPage = 2;
    state->sseClient.isConnected = false;
    settle();
    server.assertSilence();
    server.expect("GET", "/api/emails/list?folder=Work&page=2&per_page=50").json(pageJSON(emptyEmails({7}), 120, 3));
    state->sseClient.isConnected = true;
    deliverQueuedEvents();
    settle();
    EXPECT_THAT(uids(), ElementsAre(7));
}

TEST_F(EmailListTest, TriesAgainWhenTheServerIsBack) {
    expectStart("Work");
    expectPage("Work").answer(500);
    list->setFolder(folderAt(u"Work"_s));
    settle();
    ASSERT_EQ(list->content(), Content::failure);
    server.expect("GET", "/api/emails/cached?folder=Work&page=1&per_page=50").answer(500);
    expectPage("Work").json(pageJSON(emptyEmails({7})));
    state->sseClient.isConnected = true;
    deliverQueuedEvents();
    settle();
    EXPECT_EQ(list->content(), Content::rows);
}

TEST_F(EmailListTest, AnswersNobodyOnceItIsClosed) {
    open({1, 2});
    state->sseClient.isConnected = true;
    settle();
    list->close();
    state->emailsChangedInFolder = u"Work"_s;
    state->sseClient.isConnected = false;
    settle();
    state->sseClient.isConnected = true;
    settle();
    server.assertSilence();
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"Work"_s);
}

TEST_F(EmailListTest, OpensASingleSelection) {
    open({1, 2, 3});
    list->setSelection({2});
    EXPECT_EQ(openUID(), 2);
    EXPECT_EQ((*list->viewModel->emails)[1].seen, true);
    EXPECT_NE((*list->viewModel->emails)[0].seen, true);
    list->setSelection({2, 3});
    EXPECT_EQ(openUID(), std::nullopt);
    EXPECT_NE((*list->viewModel->emails)[2].seen, true);
    list->setSelection({3});
    EXPECT_EQ(openUID(), 3);
    list->setSelection({});
    EXPECT_EQ(openUID(), std::nullopt);
}

TEST_F(EmailListTest, KeepsTheOpenMessageWhileItsRowStays) {
    open({1, 2});
    list->setSelection({2});
    reload({3, 2, 1});
    EXPECT_EQ(openUID(), 2);
}

TEST_F(EmailListTest, ClosesTheMessageWhoseRowIsGone) {
    open({1, 2});
    list->setSelection({2});
    reload({1, 3});
    EXPECT_EQ(openUID(), std::nullopt);
    EXPECT_THAT(*list->viewModel->selectedEmails, IsEmpty());
}

TEST_F(EmailListTest, KeepsAMessageThatWasOpenedWithoutASelection) {
    open({1, 2});
    state->selectedEmailUID = 7;
    reload({1, 3});
    EXPECT_EQ(openUID(), 7);
}

TEST_F(EmailListTest, KeepsAMessageThatIsOpenedRightAfterItsFolder) {
    open({1, 2});
    list->setSelection({1});
    settle();
    expectStart("Other");
    expectPage("Other").json(pageJSON(emptyEmails({7})));
    list->setFolder(folderAt(u"Other"_s));
    state->selectedEmailUID = 7;
    settle();
    EXPECT_EQ(openUID(), 7);
}

TEST_F(EmailListTest, OpensWindowsWithTheRealFolder) {
    QSignalSpy wanted(list.get(), &EmailListState::emailWindowRequested);
    list->folder = folderAt(u"__favorites"_s);
    list->openInWindow(7);
    ASSERT_EQ(wanted.count(), 1);
    EXPECT_EQ(wanted[0][0].value<EmailWindowRef>(), (EmailWindowRef{7, u"INBOX"_s}));
}

TEST_F(EmailListTest, CountsMessages) {
    EXPECT_EQ(list->countText(), QString());
    EXPECT_EQ(list->pageText(), QString());
    open({});
    for (const auto &[total, text] :
         {std::pair{0, u"0 messages"_s}, std::pair{1, u"1 message"_s}, std::pair{120, u"120 messages"_s}}) {
        list->viewModel->totalEmails = total;
        EXPECT_EQ(list->countText(), text);
    }
}

TEST_F(EmailListTest, ShowsRecipientsInASentFolder) {
    const auto email = R"({"uid": 1, "from": "Ada <a@x.org>", "to": "Bo <b@x.org>"})"_ba;
    expectStart("Sent");
    expectPage("Sent").json(pageJSON(email));
    list->setFolder(folderAt(u"Sent"_s, u"sent"_s));
    settle();
    EXPECT_EQ(list->rows.row(0).name, u"Bo"_s);
    expectStart("Work");
    expectPage("Work").json(pageJSON(email));
    list->setFolder(folderAt(u"Work"_s));
    settle();
    EXPECT_EQ(list->rows.row(0).name, u"Ada"_s);
}
