#include "mail/SpamScan.h"

#include "mail/EmailListFixture.h"
#include "mail/EmailListMenus.h"
#include "mail/MenuFinder.h"

#include <QJsonArray>
#include <QJsonObject>
#include <gmock/gmock.h>
#include <numeric>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

std::vector<qint64> upTo(qint64 last) {
    std::vector<qint64> uids(static_cast<std::size_t>(last));
    std::iota(uids.begin(), uids.end(), 1);
    return uids;
}

class SpamScanTest : public EmailListTest {
protected:
    void SetUp() override {
        EmailListTest::SetUp();
        server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
    }
    FakeExchange &expectCheck() { return server.expect("POST", "/api/ai/spam-check"); }
    void scan() {
        list->actions->checkSpam();
        settle();
    }
    const ToastMessage &toast() const { return **list->actions->spamToast; }
    int submitted(FakeExchange &check) { return int(parseJSON(check.request().body)[u"emails"_s].toArray().size()); }
};

} // namespace

TEST_F(SpamScanTest, SendsSubjectAndSenderOfUnreadRows) {
    expectStart("Work");
    expectPage("Work").json(pageJSON(R"({"uid": 1, "subject": "Win", "from": "X <x@y.org>"},
                                        {"uid": 2, "seen": true}, {"uid": 3, "body_text": "secret"})"));
    list->setFolder(folderAt(u"Work"_s));
    settle();
    auto &check = expectCheck().json(R"({"scores": []})");
    scan();
    EXPECT_EQ(parseJSON(check.request().body),
              parseJSON(R"({"emails": [{"subject": "Win", "from": "X <x@y.org>"}, {"subject": "", "from": ""}]})"));
    EXPECT_EQ(toast().message, u"No spam detected in 2 emails"_s);
    EXPECT_EQ(toast().type, ToastType::success);
}

TEST_F(SpamScanTest, TakesTwentyUnreadRowsOrTheWholeSelection) {
    open(upTo(25));
    auto &ofPage = expectCheck().json("{}");
    scan();
    EXPECT_EQ(submitted(ofPage), 20);
    const auto all = upTo(25);
    list->setSelection({all.begin(), all.end()});
    auto &ofSelection = expectCheck().json("{}");
    scan();
    EXPECT_EQ(submitted(ofSelection), 25);
}

TEST_F(SpamScanTest, MovesWhatReachesTheThreshold) {
    open({11, 12, 13, 14}, 120, 3);
    list->setSelection({11, 12, 13, 14});
    expectCheck().json(R"({"scores": [{"index": 2, "spam_score": 0.8}, {"index": 0, "spam_score": 0.79},
        {"index": 4, "spam_score": 1}, {"index": -1, "spam_score": 1}, {"index": 1, "spam_score": 0.99},
        {"index": 2, "spam_score": 0.9}]})");
    auto &first = server.expect("POST", "/api/emails/move").json("{}");
    auto &second = server.expect("POST", "/api/emails/move").answer(500);
    scan();
    EXPECT_EQ(parseJSON(first.request().body), parseJSON(R"({"uid": 13, "from_folder": "Work", "to_folder": "Junk"})"));
    EXPECT_EQ(parseJSON(second.request().body),
              parseJSON(R"({"uid": 12, "from_folder": "Work", "to_folder": "Junk"})"));
    EXPECT_EQ(toast().message, u"Moved 1 spam email(s) to Spam folder"_s);
    EXPECT_EQ(toast().type, ToastType::warning);
    EXPECT_THAT(uids(), ElementsAre(11, 12, 14));
    EXPECT_THAT(*list->viewModel->selectedEmails, ElementsAre(11, 12, 14));
    EXPECT_EQ(list->viewModel->totalEmails, 120);
}

TEST_F(SpamScanTest, TellsWhyItFailed) {
    open({1});
    expectCheck().json(R"({"error": "No model"})");
    scan();
    EXPECT_EQ(toast().message, u"Spam check failed: No model"_s);
    EXPECT_EQ(toast().type, ToastType::error);
    EXPECT_FALSE(list->actions->isCheckingSpam);
}

TEST_F(SpamScanTest, HasNothingToDoOnAnEmptyPage) {
    open({});
    scan();
    EXPECT_EQ(toast().message, u"No emails to check"_s);
    EXPECT_EQ(toast().type, ToastType::info);
    server.assertSilence();
}

TEST_F(SpamScanTest, IsOfferedOnlyWithAModelAndOnceAtATime) {
    open({1});
    const QStringList way{u"Check for Spam with AI"_s};
    EXPECT_FALSE(entryTexts(filterMenu(*list)).contains(way.first()));
    state->currentUser = decodeJSON<User>(parseJSON(R"({"_id": "u", "username": "u", "ai_provider": "ollama"})"));
    EXPECT_TRUE(entryNamed(filterMenu(*list), way).isEnabled);
    auto &check = expectCheck().held();
    entryNamed(filterMenu(*list), way).perform();
    check.request();
    EXPECT_FALSE(entryNamed(filterMenu(*list), way).isEnabled);
    answerHeld(check, "{}");
    settle();
    EXPECT_TRUE(entryNamed(filterMenu(*list), way).isEnabled);
}

TEST_F(SpamScanTest, TouchesNoRowOfAFolderOpenedMeanwhile) {
    open({1, 2});
    expectCheck().json(R"({"scores": [{"index": 0, "spam_score": 1}]})");
    auto &move = server.expect("POST", "/api/emails/move").held();
    list->actions->checkSpam();
    move.request();
    expectStart("Other");
    expectPage("Other").json(pageJSON(emptyEmails({1, 2})));
    list->setFolder(folderAt(u"Other"_s));
    ASSERT_TRUE(spinUntil([&] { return list->loadedFolderPath.get() == u"Other"_s; }));
    answerHeld(move, "{}");
    settle();
    EXPECT_THAT(uids(), ElementsAre(1, 2));
}
