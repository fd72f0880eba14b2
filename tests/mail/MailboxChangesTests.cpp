#include "mail/MailboxFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

const QByteArray threeRows = R"({"uid": 1, "from": "Ada <ada@x.org>"}, {"uid": 2, "from": "\"B\" <BOB@x.org>"},
                                {"uid": 3, "from": "Cy <cy@y.org>"})";

class MailboxChanges : public MailboxTest {
protected:
    FakeExchange &expectPost(const QByteArray &path, int status = 200) {
        return server.expect("POST", path).answer(status);
    }
    const EmailSummary &row(std::size_t index) const { return model->emails->at(index); }
    std::vector<std::optional<bool>> seen() const { return flags(&EmailSummary::seen); }
    std::vector<std::optional<bool>> flagged() const { return flags(&EmailSummary::flagged); }

private:
    std::vector<std::optional<bool>> flags(std::optional<bool> EmailSummary::*flag) const {
        std::vector<std::optional<bool>> values;
        for (const auto &email : model->emails.get())
            values.push_back(email.*flag);
        return values;
    }
};

/// An operation on the selection {1, 3} of three rows in "Work".
struct BulkRow {
    const char *name;
    QCoro::Task<> (*run)(MailboxViewModel &model);
    QByteArray path, body;
    bool removes;
};

const BulkRow bulks[] = {
    {"Delete", [](MailboxViewModel &model) { return model.bulkDelete(u"Work"_s, u"Bin"_s); }, "/api/emails/bulk-delete",
     R"({"uids": [1, 3], "folder": "Work", "permanent": false, "to_folder": "Bin"})", true},
    {"Move", [](MailboxViewModel &model) { return model.bulkMove(u"Work"_s, u"Bin"_s); }, "/api/emails/bulk-move",
     R"({"uids": [1, 3], "from_folder": "Work", "to_folder": "Bin"})", true},
    {"Read", [](MailboxViewModel &model) { return model.bulkMarkRead(u"Work"_s); }, "/api/emails/bulk-flag",
     R"({"uids": [1, 3], "folder": "Work", "flag": "seen", "set": true})", false},
    {"Unread", [](MailboxViewModel &model) { return model.bulkMarkUnread(u"Work"_s); }, "/api/emails/bulk-flag",
     R"({"uids": [1, 3], "folder": "Work", "flag": "seen", "set": false})", false},
    {"Flag", [](MailboxViewModel &model) { return model.bulkFlag(u"Work"_s, true); }, "/api/emails/bulk-flag",
     R"({"uids": [1, 3], "folder": "Work", "flag": "flagged", "set": true})", false},
};

class Bulk : public MailboxChanges, public testing::WithParamInterface<BulkRow> {
protected:
    void SetUp() override {
        MailboxChanges::SetUp();
        show(threeRows, 120);
        model->selectedEmails = {1, 3};
    }
};

class JobWatch : public MailboxChanges {
protected:
    void bulkDelete(int count) {
        std::set<qint64> selection;
        for (int uid = 1; uid <= count; ++uid)
            selection.insert(uid);
        model->selectedEmails = selection;
        expectPost("/api/emails/bulk-delete");
        expectState().answer(500);
        await(model->bulkDelete(u"Work"_s, u"Bin"_s));
    }
    FakeExchange &expectJobs(const QByteArrayList &statuses) {
        QByteArrayList jobs;
        for (const auto &status : statuses)
            jobs.append(R"({"_id": "1", "type": "move", "status": ")" + status + "\"}");
        return server.expect("GET", "/api/jobs/list").json("{\"jobs\": [" + jobs.join(',') + "]}");
    }
    bool waitsForNextRead() {
        return spinUntil([&] { return clock.nextDue() == 2000ms; });
    }

    ManualClock clock;
};

} // namespace

TEST_F(MailboxChanges, RemovesADeletedRowAfterTheServerDid) {
    show(threeRows, 1);
    model->selectedEmails = {2};
    auto &change = expectPost("/api/emails/delete");
    auto &state = expectState().held();
    launch(model->deleteOne(2, u"Work"_s, u"Bin"_s));
    state.request();
    EXPECT_THAT(uids(), ElementsAre(1, 2, 3));
    answerHeld(state, stateJSON("Work", "", 0));
    ASSERT_TRUE(spinUntil([&] { return uids() == std::vector<qint64>{1, 3}; }));
    EXPECT_EQ(parseJSON(change.request().body),
              parseJSON(R"({"uid": 2, "folder": "Work", "permanent": false, "to_folder": "Bin"})"));
    EXPECT_EQ(model->totalEmails, 0);
    EXPECT_THAT(model->selectedEmails.get(), ElementsAre(2));
}

TEST_F(MailboxChanges, RemovesAMovedRow) {
    show(threeRows, 120);
    expectPost("/api/emails/move");
    expectState().answer(500);
    await(model->moveOne(1, u"Work"_s, u"Bin"_s));
    EXPECT_THAT(uids(), ElementsAre(2, 3));
    EXPECT_EQ(model->totalEmails, 119);
}

TEST_F(MailboxChanges, ThatFailChangeNothing) {
    show(threeRows, 120);
    const auto before = model->emails.get();
    expectPost("/api/emails/delete", 500);
    expectPost("/api/emails/move", 401);
    expectPost("/api/emails/flag", 500);
    await(model->deleteOne(1, u"Work"_s, u"Bin"_s));
    await(model->moveOne(1, u"Work"_s, u"Bin"_s));
    await(model->flagOne(1, u"Work"_s, u"flagged"_s, true));
    EXPECT_EQ(model->emails.get(), before);
    EXPECT_EQ(model->totalEmails, 120);
    EXPECT_EQ(model->errorMessage.get(), std::nullopt);
}

TEST_F(MailboxChanges, SetTheFlagOfARow) {
    show(threeRows);
    expectPost("/api/emails/flag");
    await(model->flagOne(2, u"Work"_s, u"flagged"_s, true));
    EXPECT_THAT(flagged(), ElementsAre(std::nullopt, true, std::nullopt));
    expectPost("/api/emails/flag");
    expectState().answer(500);
    await(model->flagOne(1, u"Work"_s, u"seen"_s, true));
    EXPECT_THAT(seen(), ElementsAre(true, std::nullopt, std::nullopt));
    expectPost("/api/emails/flag");
    await(model->flagOne(3, u"Work"_s, u"\\Flagged"_s, true));
    EXPECT_EQ(row(2).flagged, std::nullopt);
}

TEST_F(MailboxChanges, ApplyToTheRowsThatAreThereByThen) {
    show(threeRows);
    auto &change = server.expect("POST", "/api/emails/flag").held();
    launch(model->flagOne(2, u"Work"_s, u"flagged"_s, true));
    change.request();
    expectPage(1).json(pageJSON(emptyEmails({9, 2})));
    await(model->load(u"Work"_s, std::nullopt, false));
    answerHeld(change, "{}");
    ASSERT_TRUE(spinUntil([&] { return row(1).flagged == true; }));
    EXPECT_EQ(row(0).flagged, std::nullopt);
}

TEST_F(MailboxChanges, MarkSeenWithoutTheServer) {
    show(threeRows);
    model->markSeenLocally(2);
    model->markSeenLocally(99);
    EXPECT_THAT(seen(), ElementsAre(std::nullopt, true, std::nullopt));
    model->removeRows({1, 3});
    EXPECT_THAT(uids(), ElementsAre(2));
    EXPECT_EQ(model->totalEmails, 2);
    server.assertSilence();
}

TEST_P(Bulk, ChangesTheSelectedRows) {
    auto &change = expectPost(GetParam().path);
    expectState().answer(500);
    await(GetParam().run(*model));
    EXPECT_EQ(parseJSON(change.request().body), parseJSON(GetParam().body));
    EXPECT_EQ(uids(), GetParam().removes ? std::vector<qint64>{2} : (std::vector<qint64>{1, 2, 3}));
    EXPECT_EQ(model->totalEmails, GetParam().removes ? 118 : 120);
    EXPECT_EQ(model->selectedEmails->size(), GetParam().removes ? 0U : 2U);
    if (GetParam().removes)
        return;
    const bool isFlag = GetParam().name == std::string("Flag");
    const auto set = parseJSON(GetParam().body).toObject().value("set"_L1).toBool();
    EXPECT_THAT(isFlag ? flagged() : seen(), ElementsAre(set, std::nullopt, set));
}

TEST_P(Bulk, ThatFailsChangesNothing) {
    const auto before = model->emails.get();
    expectPost(GetParam().path, 500);
    await(GetParam().run(*model));
    EXPECT_EQ(model->emails.get(), before);
    EXPECT_EQ(model->selectedEmails->size(), 2U);
    EXPECT_EQ(model->totalEmails, 120);
}

TEST_P(Bulk, OfNothingAsksNobody) {
    model->selectedEmails = {};
    await(GetParam().run(*model));
    server.assertSilence();
}

INSTANTIATE_TEST_SUITE_P(, Bulk, testing::ValuesIn(bulks), rowName);

TEST_F(MailboxChanges, CountRowsThatHaveVanishedAlready) {
    show(threeRows, 3);
    model->selectedEmails = {1, 70, 71, 72};
    expectPost("/api/emails/bulk-move");
    expectState().answer(500);
    await(model->bulkMove(u"Work"_s, u"Bin"_s));
    EXPECT_THAT(uids(), ElementsAre(2, 3));
    EXPECT_EQ(model->totalEmails, 0);
}

TEST_F(JobWatch, DoesNotFollowFiveMessages) {
    bulkDelete(5);
    server.assertSilence();
}

TEST_F(JobWatch, FollowsSixUntilNothingRuns) {
    expectJobs({"pending", "running", "processing", "done", "failed"});
    bulkDelete(6);
    ASSERT_TRUE(waitsForNextRead());
    EXPECT_EQ(model->backgroundJobsActive, 3);
    clock.advance(1999ms);
    server.assertSilence();
    expectJobs({"done"});
    clock.advance(1ms);
    EXPECT_TRUE(spinUntil([&] { return model->backgroundJobsActive == 0; }));
    EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    EXPECT_EQ(clock.scheduledCount(), 0);
}

TEST_F(JobWatch, EndsWhenTheListCannotBeRead) {
    expectJobs({"pending"});
    bulkDelete(6);
    ASSERT_TRUE(waitsForNextRead());
    server.expect("GET", "/api/jobs/list").answer(500);
    clock.advance(2s);
    EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    EXPECT_EQ(model->backgroundJobsActive, 0);
}

TEST_F(JobWatch, GivesUpAfterThreeMinutes) {
    auto &jobs = expectJobs({"pending"}).anyNumberOfTimes();
    bulkDelete(6);
    for (int reads = 1; reads <= 90; ++reads) {
        ASSERT_TRUE(waitsForNextRead());
        EXPECT_EQ(jobs.arrivals(), reads);
        EXPECT_EQ(model->backgroundJobsActive, 1);
        clock.advance(2s);
    }
    EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
    EXPECT_EQ(model->backgroundJobsActive, 0);
    EXPECT_EQ(jobs.arrivals(), 90);
}

TEST_F(JobWatch, DoesNotKeepTheModel) {
    expectJobs({"pending"});
    bulkDelete(6);
    ASSERT_TRUE(waitsForNextRead());
    const std::weak_ptr<MailboxViewModel> weak = model;
    model.reset();
    EXPECT_TRUE(weak.expired());
    expectJobs({"pending"});
    clock.advance(2s);
    EXPECT_TRUE(spinUntil([] { return launchedTaskCount() == 0; }));
}

TEST_F(MailboxChanges, KnowsTheSendersOfTheSelection) {
    show(threeRows + R"(, {"uid": 4, "from": "ADA@x.org"}, {"uid": 5}, {"uid": 6, "from": "nobody"})");
    model->selectedEmails = {1, 2, 4, 5, 6};
    EXPECT_THAT(model->selectedSenders(), ElementsAre(u"ada@x.org"_s, u"bob@x.org"_s));
}

TEST_F(MailboxChanges, BlockEachSender) {
    show(threeRows, 120);
    model->selectedEmails = {1, 3};
    auto &first = expectPost("/api/blocked/add", 500);
    auto &second = expectPost("/api/blocked/add");
    auto &removal = expectPost("/api/emails/bulk-delete");
    expectState().answer(500);
    EXPECT_EQ(await(model->blockSelected(u"Work"_s, false)), 1);
    EXPECT_EQ(parseJSON(first.request().body), parseJSON(R"({"type": "sender", "pattern": "ada@x.org"})"));
    EXPECT_EQ(parseJSON(second.request().body), parseJSON(R"({"type": "sender", "pattern": "cy@y.org"})"));
    EXPECT_EQ(parseJSON(removal.request().body),
              parseJSON(R"({"uids": [1, 3], "folder": "Work", "permanent": true, "to_folder": "Trash"})"));
    EXPECT_THAT(uids(), ElementsAre(2));
    EXPECT_EQ(model->totalEmails, 118);
    EXPECT_THAT(model->selectedEmails.get(), IsEmpty());
}

TEST_F(MailboxChanges, BlockADomainOnce) {
    show(threeRows, 120);
    model->selectedEmails = {1, 2};
    auto &rule = expectPost("/api/blocked/add");
    expectPost("/api/emails/bulk-delete", 500);
    EXPECT_EQ(await(model->blockSelected(u"Work"_s, true)), 1);
    EXPECT_EQ(parseJSON(rule.request().body), parseJSON(R"({"type": "sender", "pattern": "*@x.org"})"));
    EXPECT_THAT(uids(), ElementsAre(3));
}

TEST_F(MailboxChanges, KeepTheRowsWhenNoRuleWasAdded) {
    show(threeRows, 120);
    model->selectedEmails = {1};
    expectPost("/api/blocked/add", 500);
    EXPECT_EQ(await(model->blockSelected(u"Work"_s, false)), 0);
    EXPECT_THAT(uids(), ElementsAre(1, 2, 3));
    model->selectedEmails = {};
    EXPECT_EQ(await(model->blockSelected(u"Work"_s, false)), 0);
    server.assertSilence();
}

TEST_F(MailboxChanges, BlockTheSenderOfOneMessage) {
    show(threeRows, 120);
    model->selectedEmails = {2, 3};
    auto &rule = expectPost("/api/blocked/add");
    auto &removal = expectPost("/api/emails/delete", 500);
    EXPECT_EQ(await(model->blockOne(row(1), u"Work"_s, true)), u"*@x.org"_s);
    EXPECT_EQ(parseJSON(rule.request().body), parseJSON(R"({"type": "sender", "pattern": "*@x.org"})"));
    EXPECT_EQ(parseJSON(removal.request().body),
              parseJSON(R"({"uid": 2, "folder": "Work", "permanent": true, "to_folder": "Trash"})"));
    EXPECT_THAT(uids(), ElementsAre(1, 3));
    EXPECT_EQ(model->totalEmails, 119);
    EXPECT_THAT(model->selectedEmails.get(), ElementsAre(3));
}

TEST_F(MailboxChanges, BlockNobodyWithoutAnAddress) {
    show(threeRows);
    EXPECT_EQ(await(model->blockOne({.uid = 2, .from = u"nobody"_s}, u"Work"_s, false)), std::nullopt);
    // A pattern without a domain would block everybody.
    EXPECT_EQ(await(model->blockOne({.uid = 2, .from = u"@"_s}, u"Work"_s, true)), std::nullopt);
    server.assertSilence();
    expectPost("/api/blocked/add", 500);
    EXPECT_EQ(await(model->blockOne(row(0), u"Work"_s, false)), std::nullopt);
    EXPECT_THAT(uids(), ElementsAre(1, 2, 3));
}
