#include "mail/MailboxFixture.h"

#include "platform/AtomicFileWriter.h"
#include "platform/StandardPaths.h"
#include "platform/UserDefaults.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class MailboxLoad : public MailboxTest {
protected:
    void start(const QString &folder, std::optional<qint64> page = std::nullopt) {
        launch(model->load(folder, page, false, stop.get_token()));
    }
    void finish() {
        ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    }
    bool comesToShow(const std::vector<qint64> &expected) {
        return spinUntil([&] { return uids() == expected; });
    }

    std::stop_source stop;
};

/// A state of the model in which the cached page must not be asked for.
struct UncachedRow {
    const char *name;
    void (*prepare)(MailboxViewModel &model);
    bool flaggedOnly;
    QByteArray query;
};

class Uncached : public MailboxTest, public testing::WithParamInterface<UncachedRow> {};

const UncachedRow uncached[] = {
    {"Search", [](MailboxViewModel &model) { model.searchQuery = u"x"_s; }, false,
     "folder=Work&page=1&per_page=50&search=x"},
    {"Attachments", [](MailboxViewModel &model) { model.filterHasAttachment = true; }, false,
     "folder=Work&has_attachment=1&page=1&per_page=50"},
    {"LastDays", [](MailboxViewModel &model) { model.filterLastDays = 7; }, false,
     "folder=Work&last_days=7&page=1&per_page=50"},
    {"DateFrom", [](MailboxViewModel &model) { model.filterDateFrom = u"2026-01-02"_s; }, false,
     "date_from=2026-01-02&folder=Work&page=1&per_page=50"},
    {"DateTo", [](MailboxViewModel &model) { model.filterDateTo = u"2026-01-02"_s; }, false,
     "date_to=2026-01-02&folder=Work&page=1&per_page=50"},
    {"LaterPage", [](MailboxViewModel &model) { model.currentPage = 2; }, false, "folder=Work&page=2&per_page=50"},
    {"Favorites", [](MailboxViewModel &) {}, true, "flagged=1&folder=Work&page=1&per_page=50"},
};

struct PageInfoRow {
    const char *name;
    qint64 total, page;
    QString text;
};

class PageInfo : public testing::TestWithParam<PageInfoRow> {};

const PageInfoRow pageInfos[] = {
    {"Empty", 0, 1, u"No emails"_s},
    {"One", 1, 1, u"1-1 of 1"_s},
    {"First", 120, 1, u"1-50 of 120"_s},
    {"Last", 120, 3, u"101-120 of 120"_s},
};

} // namespace

TEST_F(MailboxLoad, ShowsTheCachedPageUntilTheLiveOneComes) {
    auto &cached = expectCached().held();
    auto &live = expectPage(1).held();
    start(u"Work"_s);
    EXPECT_TRUE(model->isLoading);
    EXPECT_FALSE(model->isRefreshing);
    answerHeld(cached, pageJSON(emptyEmails({1, 2}), 2, 1));
    ASSERT_TRUE(comesToShow({1, 2}));
    EXPECT_TRUE(model->isRefreshing);
    answerHeld(live, pageJSON(emptyEmails({3, 2, 1}), 120, 3));
    finish();
    EXPECT_THAT(uids(), ElementsAre(3, 2, 1));
    EXPECT_EQ(model->totalEmails, 120);
    EXPECT_EQ(model->totalPages, 3);
    EXPECT_FALSE(model->isLoading || model->isRefreshing);
}

TEST_F(MailboxLoad, GoesOnWithoutACachedPage) {
    for (const auto &answer : {pageJSON("", 0, 0), "no JSON"_ba}) {
        model = std::make_shared<MailboxViewModel>();
        expectCached().json(answer);
        auto &live = expectPage(1).held();
        start(u"Work"_s);
        live.request();
        EXPECT_TRUE(model->isLoading);
        answerHeld(live, pageJSON(emptyEmails({1})));
        finish();
        EXPECT_THAT(uids(), ElementsAre(1));
        EXPECT_FALSE(model->isLoading);
    }
}

TEST_P(Uncached, AsksTheServerAtOnce) {
    GetParam().prepare(*model);
    expectList(GetParam().query).json(pageJSON(emptyEmails({1})));
    await(model->load(u"Work"_s, std::nullopt, GetParam().flaggedOnly));
    EXPECT_THAT(uids(), ElementsAre(1));
}

INSTANTIATE_TEST_SUITE_P(, Uncached, testing::ValuesIn(uncached), rowName);

TEST_F(MailboxLoad, RefreshesBehindTheRows) {
    show(emptyEmails({1, 2}));
    auto &live = expectPage(1).held();
    start(u"Work"_s);
    live.request();
    EXPECT_FALSE(model->isLoading);
    EXPECT_TRUE(model->isRefreshing);
    EXPECT_THAT(uids(), ElementsAre(1, 2));
    answerHeld(live, pageJSON(emptyEmails({2})));
    finish();
    EXPECT_THAT(uids(), ElementsAre(2));
}

TEST_F(MailboxLoad, NeverShowsTheRowsOfAnotherFolder) {
    show(emptyEmails({1, 2}));
    model->selectedEmails = {1};
    auto &other = expectList("folder=Other&page=1&per_page=50").held();
    server.expect("GET", "/api/emails/cached?folder=Other&page=1&per_page=50").json(pageJSON("", 0, 0));
    start(u"Other"_s);
    EXPECT_THAT(uids(), IsEmpty());
    EXPECT_THAT(model->selectedEmails.get(), IsEmpty());
    EXPECT_EQ(model->totalEmails, 0);
    EXPECT_EQ(model->totalPages, 0);
    answerHeld(other, pageJSON(emptyEmails({9})));
    finish();
    EXPECT_THAT(uids(), ElementsAre(9));
}

TEST_F(MailboxLoad, DropsTheOlderAnswerThatComesLast) {
    auto &first = expectPage(2).held();
    auto &second = expectPage(3).held();
    start(u"Work"_s, 2);
    start(u"Work"_s, 3);
    first.request();
    answerHeld(second, pageJSON(emptyEmails({3})));
    ASSERT_TRUE(comesToShow({3}));
    EXPECT_FALSE(model->isLoading);
    answerHeld(first, pageJSON(emptyEmails({2})));
    finish();
    EXPECT_THAT(uids(), ElementsAre(3));
    EXPECT_EQ(model->currentPage, 3);
}

TEST_F(MailboxLoad, DropsTheOlderAnswerThatComesFirst) {
    auto &first = expectPage(2).held();
    auto &second = expectPage(3).held();
    start(u"Work"_s, 2);
    start(u"Work"_s, 3);
    second.request();
    answerHeld(first, pageJSON(emptyEmails({2})));
    ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 1; }));
    EXPECT_THAT(uids(), IsEmpty());
    EXPECT_TRUE(model->isLoading);
    answerHeld(second, pageJSON(emptyEmails({3})));
    finish();
    EXPECT_THAT(uids(), ElementsAre(3));
    EXPECT_FALSE(model->isLoading);
}

TEST_F(MailboxLoad, DropsTheFailureOfAnOlderLoad) {
    auto &first = expectPage(2).held();
    expectPage(3).json(pageJSON(emptyEmails({3})));
    start(u"Work"_s, 2);
    first.request();
    await(model->load(u"Work"_s, 3, false));
    first.sendHead(500, "text/plain", "Content-Length: 0\r\n");
    finish();
    EXPECT_EQ(model->errorMessage.get(), std::nullopt);
}

TEST_F(MailboxLoad, DropsTheAnswerOfAStoppedLoad) {
    auto &live = expectPage(2).held();
    start(u"Work"_s, 2);
    live.request();
    stop.request_stop();
    answerHeld(live, pageJSON(emptyEmails({2})));
    finish();
    EXPECT_THAT(uids(), IsEmpty());
}

TEST_F(MailboxLoad, DropsACachedPageThatComesTooLate) {
    auto &cached = expectCached().held();
    start(u"Work"_s);
    cached.request();
    stop.request_stop();
    answerHeld(cached, pageJSON(emptyEmails({1})));
    finish();
    EXPECT_THAT(uids(), IsEmpty());
    server.assertSilence();
}

TEST_F(MailboxLoad, OutlivesItsScreen) {
    auto &live = expectPage(2).held();
    start(u"Work"_s, 2);
    live.request();
    const std::weak_ptr<MailboxViewModel> weak = model;
    model.reset();
    answerHeld(live, pageJSON(emptyEmails({2})));
    finish();
    EXPECT_TRUE(weak.expired());
}

TEST_F(MailboxLoad, KeepsTheRowsWhenARefreshFails) {
    show(emptyEmails({1, 2}));
    expectPage(1).json(R"({"error": "Mailbox is locked"})", 503);
    await(model->load(u"Work"_s, std::nullopt, false));
    EXPECT_EQ(model->errorMessage.get(), u"Mailbox is locked"_s);
    EXPECT_THAT(uids(), ElementsAre(1, 2));
    EXPECT_FALSE(model->isLoading || model->isRefreshing);
    auto &next = expectPage(1).held();
    start(u"Work"_s);
    next.request();
    EXPECT_EQ(model->errorMessage.get(), std::nullopt);
    answerHeld(next, pageJSON(emptyEmails({1})));
    finish();
}

TEST_F(MailboxLoad, KeepsTheSelectionAsFarAsItsRows) {
    show(emptyEmails({1, 2, 3}));
    model->selectedEmails = {1, 3};
    expectPage(1).json(pageJSON(emptyEmails({4, 3, 2})));
    await(model->load(u"Work"_s, std::nullopt, false));
    EXPECT_THAT(model->selectedEmails.get(), ElementsAre(3));
}

TEST_F(MailboxLoad, AsksForWhatWasWantedAtItsStart) {
    auto &cached = expectCached().held();
    start(u"Work"_s);
    model->searchQuery = u"typed meanwhile"_s;
    model->filterLastDays = 30;
    expectPage(1).json(pageJSON(emptyEmails({1})));
    answerHeld(cached, pageJSON("", 0, 0));
    finish();
    EXPECT_THAT(uids(), ElementsAre(1));
}

TEST_F(MailboxLoad, TurnsPages) {
    show(emptyEmails({1}), 120);
    expectPage(2).json(pageJSON(emptyEmails({2}), 120, 2));
    await(model->nextPage(u"Work"_s, false));
    EXPECT_THAT(uids(), ElementsAre(2));
    await(model->nextPage(u"Work"_s, false));
    expectPage(1).json(pageJSON(emptyEmails({1}), 120, 2));
    await(model->previousPage(u"Work"_s, false));
    await(model->previousPage(u"Work"_s, false));
    EXPECT_EQ(model->currentPage, 1);
    server.assertSilence();
}

TEST_P(PageInfo, CountsRows) {
    MailboxViewModel model;
    model.totalEmails = GetParam().total;
    model.currentPage = GetParam().page;
    EXPECT_EQ(model.pageInfoText(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(, PageInfo, testing::ValuesIn(pageInfos), rowName);

TEST_F(MailboxLoad, ClearsFiltersButNotTheSearch) {
    model->filterHasAttachment = true;
    model->filterLastDays = 7;
    model->filterDateFrom = u"2026-01-02"_s;
    model->filterDateTo = u"2026-01-02"_s;
    model->searchQuery = u"x"_s;
    EXPECT_TRUE(model->hasActiveFilters());
    model->clearFilters();
    EXPECT_FALSE(model->hasActiveFilters());
    EXPECT_EQ(*model->searchQuery, u"x"_s);
}

TEST_F(MailboxLoad, TellsTheDesktopWidgetOfTheInbox) {
    const ManualClock clock(QDateTime({2026, 3, 2}, {9, 0}, Qt::UTC));
    QByteArrayList emails{R"({"uid": 1, "from": "Ada <a@x.org>", "subject": "S", "date": "D", "seen": true})"};
    for (int uid = 2; uid <= 12; ++uid)
        emails.append("{\"uid\": " + QByteArray::number(uid) + "}");
    server.expect("GET", "/api/emails/cached?folder=Inbox&page=1&per_page=50").answer(500);
    expectList("folder=Inbox&page=1&per_page=50").json(pageJSON(emails.join(',')));
    auto &state = server.expect("GET", "/api/emails/notification-state?folder=Inbox").held();
    await(model->load(u"Inbox"_s, std::nullopt, false));
    const auto store = UserDefaults::suite(applicationGroupName());
    EXPECT_EQ(store->integer(u"widget_unread_count"_s), 11);
    EXPECT_EQ(store->number(u"widget_last_update"_s), 1772442000);
    const auto items = parseJSON(store->bytes(u"widget_recent_emails"_s).value_or(QByteArray())).toArray();
    ASSERT_EQ(items.size(), 10);
    EXPECT_EQ(items[0], parseJSON(R"json({"uid": 1, "from": "Ada <a@x.org>", "subject": "S", "date": "D",
                                          "isRead": true, "folder": "Inbox", "fromDomain": "x.org"})json"));
    EXPECT_EQ(items[1], parseJSON(R"json({"uid": 2, "from": "Unknown", "subject": "(No subject)", "date": "",
                                          "isRead": false, "folder": "Inbox", "fromDomain": ""})json"));
    answerHeld(state, stateJSON("Inbox", "2,3", 77));
    finish();
    EXPECT_EQ(store->integer(u"widget_unread_count"_s), 77);
    EXPECT_EQ(*NotificationService::shared().dockBadgeLabel, u"77"_s);
}

TEST_F(MailboxLoad, TellsTheDesktopWidgetNothingOfOtherLists) {
    expectList("folder=INBOX&page=2&per_page=50").json(pageJSON(emptyEmails({1})));
    await(model->load(u"INBOX"_s, 2, false));
    model->searchQuery = u"x"_s;
    expectList("folder=INBOX&page=1&per_page=50&search=x").json(pageJSON(emptyEmails({1})));
    await(model->load(u"INBOX"_s, 1, false));
    server.assertSilence();
    EXPECT_FALSE(UserDefaults::suite(applicationGroupName())->contains(u"widget_unread_count"_s));
}
