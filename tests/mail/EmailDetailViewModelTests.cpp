#include "mail/EmailDetailViewModel.h"

#include "mail/MailAnswers.h"
#include "notify/NotificationService.h"
#include "platform/Tasks.h"
#include "support/CoreTest.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class EmailDetailTest : public CoreTest {
protected:
    void SetUp() override {
        server.makeCurrent();
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
    }
    void TearDown() override {
        model.reset();
        CoreTest::TearDown();
        NotificationService::shared().forgetMailboxes();
    }

    FakeExchange &expectRead(int uid) {
        return server.expect("GET", "/api/emails/read/" + QByteArray::number(uid) + "?folder=INBOX");
    }
    FakeExchange &expectSearch(const QByteArray &text) {
        return server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=" + text);
    }
    FakeExchange &expectSource() { return server.expect("GET", "/api/emails/source/7?folder=INBOX"); }

    std::vector<qint64> thread() const {
        std::vector<qint64> uids;
        for (const auto &email : model->threadEmails.get())
            uids.push_back(email.uid);
        return uids;
    }
    void start(qint64 uid) { launch(model->loadEmail(uid, u"INBOX"_s)); }
    void finish() {
        ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    }
    /// Opens message 7, whose subject is "Re: Plan", with this thread.
    void openWithThread() {
        expectRead(7).json(R"({"uid": 7, "subject": "Re: Plan"})");
        expectSearch("plan").json(pageJSON(R"({"uid": 1, "subject": "plan"})"));
        await(model->loadEmail(7, u"INBOX"_s));
    }

    FakeServer server;
    std::shared_ptr<EmailDetailViewModel> model = std::make_shared<EmailDetailViewModel>();
};

struct SubjectRow {
    const char *name;
    QString subject, normalized;
};

class NormalizedSubject : public testing::TestWithParam<SubjectRow> {};

const SubjectRow subjects[] = {
    {"Plain", u"Plan"_s, u"Plan"_s},
    {"Stacked", u" RE:  FWD:\tPlan "_s, u"Plan"_s},
    {"NoBlank", u"re:Plan"_s, u"Plan"_s},
    {"AllPrefixes", u"Fw: Re: fwd: Plan: re: x"_s, u"Plan: re: x"_s},
    {"OnlyPrefixes", u"Re: Fwd: "_s, u""_s},
    {"NoPrefix", u"Ref: Plan"_s, u"Ref: Plan"_s},
    {"LineBreakStays", u"\nRe: Plan"_s, u"\nRe: Plan"_s},
};

} // namespace

TEST_P(NormalizedSubject, HasNoPrefixes) {
    EXPECT_EQ(EmailDetailViewModel::normalizedSubject(GetParam().subject), GetParam().normalized);
}

INSTANTIATE_TEST_SUITE_P(, NormalizedSubject, testing::ValuesIn(subjects), rowName);

TEST_F(EmailDetailTest, FindsTheThreadBySubjectAlone) {
    expectRead(7).json(R"({"uid": 7, "subject": "RE:  FWD: Big Plan"})");
    expectSearch("big%20plan").json(pageJSON(R"(
        {"uid": 7, "subject": "Big Plan"}, {"uid": 3, "subject": "re:big plan", "timestamp": 30},
        {"uid": 4, "subject": "No big plan", "timestamp": 1}, {"uid": 5, "subject": "Big Plan"}, {"uid": 6},
        {"uid": 2, "subject": "BIG PLAN", "timestamp": 20}, {"uid": 8, "subject": "Big Plan"})"));
    await(model->loadEmail(7, u"INBOX"_s));
    EXPECT_THAT(thread(), ElementsAre(5, 8, 2, 3));
    EXPECT_EQ(model->email.get()->uid, 7);
    EXPECT_FALSE(model->isLoading);
}

TEST_F(EmailDetailTest, SearchesNothingForASubjectOfPrefixes) {
    for (const auto &subject : {R"("Re: Fwd:")", "null"}) {
        expectRead(7).json(QByteArray(R"({"uid": 7, "subject": )") + subject + "}");
        await(model->loadEmail(7, u"INBOX"_s));
        EXPECT_EQ(model->email.get()->uid, 7);
    }
    server.assertSilence();
}

TEST_F(EmailDetailTest, ShowsTheMessageBeforeItsThread) {
    expectRead(7).json(R"({"uid": 7, "subject": "Plan"})");
    auto &search = expectSearch("plan").held();
    start(7);
    search.request();
    EXPECT_TRUE(model->email.get());
    EXPECT_FALSE(model->isLoading);
    search.sendHead(500, "text/plain", "Content-Length: 0\r\n");
    finish();
    EXPECT_THAT(thread(), IsEmpty());
    EXPECT_EQ(model->errorMessage.get(), std::nullopt);
}

TEST_F(EmailDetailTest, DropsTheAnswerOfAnEarlierMessage) {
    auto &first = expectRead(7).held();
    auto &second = expectRead(8).held();
    start(7);
    start(8);
    second.request();
    answerHeld(first, R"({"uid": 7, "subject": "Plan"})");
    ASSERT_TRUE(spinUntil([] { return launchedTaskCount() == 1; }));
    EXPECT_EQ(model->email.get(), std::nullopt);
    EXPECT_TRUE(model->isLoading);
    answerHeld(second, R"({"uid": 8})");
    finish();
    EXPECT_EQ(model->email.get()->uid, 8);
    EXPECT_FALSE(model->isLoading);
}

TEST_F(EmailDetailTest, DropsTheFailureOfAnEarlierMessage) {
    auto &first = expectRead(7).held();
    expectRead(8).json(R"({"uid": 8})");
    start(7);
    first.request();
    await(model->loadEmail(8, u"INBOX"_s));
    first.sendHead(500, "text/plain", "Content-Length: 0\r\n");
    finish();
    EXPECT_EQ(model->email.get()->uid, 8);
    EXPECT_EQ(model->errorMessage.get(), std::nullopt);
}

TEST_F(EmailDetailTest, DropsTheThreadOfAnEarlierMessage) {
    expectRead(7).json(R"({"uid": 7, "subject": "Plan"})");
    auto &search = expectSearch("plan").held();
    start(7);
    search.request();
    expectRead(8).json(R"({"uid": 8})");
    await(model->loadEmail(8, u"INBOX"_s));
    answerHeld(search, pageJSON(R"({"uid": 1, "subject": "plan"})"));
    finish();
    EXPECT_THAT(thread(), IsEmpty());
}

TEST_F(EmailDetailTest, EmptiesTheScreenWhenALoadStarts) {
    openWithThread();
    EXPECT_THAT(thread(), ElementsAre(1));
    model->showImages = true;
    auto &next = expectRead(8).held();
    start(8);
    EXPECT_THAT(thread(), IsEmpty());
    EXPECT_EQ(model->email.get(), std::nullopt);
    EXPECT_TRUE(model->showImages);
    answerHeld(next, R"({"uid": 8})");
    finish();
}

TEST_F(EmailDetailTest, TellsWhyAMessageCannotBeShown) {
    expectRead(7).json(R"({"message": "No such message"})", 404);
    testing::internal::CaptureStdout();
    await(model->loadEmail(7, u"INBOX"_s));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "[EmailDetail] loadEmail(7, INBOX) failed: No such message\n");
    EXPECT_EQ(model->errorMessage.get(), u"No such message"_s);
    EXPECT_FALSE(model->isLoading);
    auto &again = expectRead(7).held();
    start(7);
    EXPECT_EQ(model->errorMessage.get(), std::nullopt);
    answerHeld(again, R"({"uid": 7})");
    finish();
    EXPECT_EQ(model->email.get()->uid, 7);
}

TEST_F(EmailDetailTest, OutlivesItsScreen) {
    auto &read = expectRead(7).held();
    start(7);
    read.request();
    const std::weak_ptr<EmailDetailViewModel> weak = model;
    model.reset();
    answerHeld(read, R"({"uid": 7})");
    finish();
    EXPECT_TRUE(weak.expired());
}

TEST_F(EmailDetailTest, ShowsTheSourceThatWasAskedForLast) {
    auto &slow = expectSource().held();
    launch(model->loadSource(7, u"INBOX"_s));
    slow.request();
    server.expect("GET", "/api/emails/source/8?folder=INBOX").json(R"({"source": "From: b"})");
    await(model->loadSource(8, u"INBOX"_s));
    answerHeld(slow, R"({"source": "From: a"})");
    EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    EXPECT_EQ(model->rawSource.get(), u"From: b"_s);
    EXPECT_FALSE(model->isLoadingSource);
}

TEST_F(EmailDetailTest, ShowsTheSourceOrWhyNot) {
    auto &source = expectSource().held();
    launch(model->loadSource(7, u"INBOX"_s));
    EXPECT_TRUE(model->isLoadingSource);
    answerHeld(source, R"({"source": "From: a"})");
    finish();
    EXPECT_EQ(model->rawSource.get(), u"From: a"_s);
    EXPECT_FALSE(model->isLoadingSource);
    expectSource().json(R"({"error": "gone"})", 410);
    await(model->loadSource(7, u"INBOX"_s));
    EXPECT_EQ(model->rawSource.get(), u"Failed to load source: gone"_s);
    EXPECT_FALSE(model->isLoadingSource);
}
