#include "mail/EmailListModel.h"

#include "support/CoreTest.h"

#include <QAbstractItemModelTester>
#include <QLocale>
#include <QSignalSpy>
#include <gmock/gmock.h>
#include <random>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

std::vector<EmailSummary> emails(const std::vector<qint64> &uids) {
    std::vector<EmailSummary> list;
    for (const auto uid : uids)
        list.push_back({.uid = uid, .date = u"2026-03-01T08:00:00Z"_s});
    return list;
}

std::vector<qint64> uids(const EmailListModel &model) {
    std::vector<qint64> shown;
    for (int place = 0; place < model.rowCount(); ++place)
        shown.push_back(model.row(place).uid);
    return shown;
}

class EmailListModelTest : public CoreTest {
protected:
    EmailListModelTest() { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    ~EmailListModelTest() override { QLocale::setDefault(QLocale::system()); }

    ManualClock clock{QDateTime({2026, 3, 1}, {12, 0})};
    EmailListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QSignalSpy inserted{&model, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{&model, &QAbstractItemModel::rowsRemoved};
    QSignalSpy moved{&model, &QAbstractItemModel::rowsMoved};
    QSignalSpy changed{&model, &QAbstractItemModel::dataChanged};
    QSignalSpy reset{&model, &QAbstractItemModel::modelReset};
};

} // namespace

TEST_F(EmailListModelTest, KeepsWhatStaysAmongRandomChanges) {
    std::mt19937 random(20260302);
    std::vector<qint64> pool(60);
    std::iota(pool.begin(), pool.end(), 1);
    for (int round = 0; round < 300; ++round) {
        std::vector<std::pair<QPersistentModelIndex, qint64>> kept;
        for (int place = 0; place < model.rowCount(); ++place)
            kept.emplace_back(model.index(place), model.row(place).uid);
        std::shuffle(pool.begin(), pool.end(), random);
        const std::vector<qint64> wanted(pool.begin(), pool.begin() + random() % 55);
        model.setEmails(emails(wanted), false);
        ASSERT_EQ(uids(model), wanted);
        for (const auto &[index, uid] : kept)
            ASSERT_EQ(index.isValid() ? index.row() : -1, model.indexOf(uid));
    }
    EXPECT_EQ(reset.count(), 0);
}

TEST_F(EmailListModelTest, TellsOnlyWhatChanged) {
    model.setEmails(emails({5, 4, 3, 2, 1}), false);
    EXPECT_EQ(inserted.count(), 1);
    auto next = emails({7, 6, 5, 4, 1});
    next[3].seen = true;
    model.setEmails(next, false);
    EXPECT_EQ(inserted.count(), 2);
    EXPECT_EQ(removed.count(), 1);
    EXPECT_EQ(moved.count(), 0);
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 3);
    model.setEmails(next, false);
    EXPECT_EQ(inserted.count() + removed.count() + moved.count() + changed.count(), 4);
}

TEST_F(EmailListModelTest, MovesARowAsOne) {
    model.setEmails(emails({5, 4, 3, 2, 1}), false);
    model.setEmails(emails({2, 5, 4, 3, 1}), false);
    EXPECT_EQ(moved.count(), 1);
    EXPECT_EQ(inserted.count(), 1);
    EXPECT_EQ(removed.count(), 0);
}

TEST_F(EmailListModelTest, ShowsAUIDThatComesTwiceOnce) {
    model.setEmails(emails({2, 1, 2, 1}), false);
    EXPECT_THAT(uids(model), ElementsAre(2, 1));
    model.setEmails(emails({1, 1, 3}), false);
    EXPECT_THAT(uids(model), ElementsAre(1, 3));
}

TEST_F(EmailListModelTest, PreparesWhatARowShows) {
    const EmailSummary email{.uid = 7,
                             .from = u"\"Ada\" <ada@x.org>"_s,
                             .to = u"bob@y.org, cy@z.org"_s,
                             .date = clock.now().addSecs(-3600).toOffsetFromUtc(0).toString(Qt::ISODate),
                             .flagged = true,
                             .has_attachment = true,
                             .body_text = u" Hello\n\n there "_s + QString(600, u'x')};
    const auto row = emailRow(email, false);
    EXPECT_EQ(row.name, u"Ada"_s);
    EXPECT_EQ(row.domain, u"x.org"_s);
    EXPECT_EQ(row.subject, u"(No Subject)"_s);
    EXPECT_EQ(row.preview, u"Hello there "_s + QString(488, u'x'));
    EXPECT_EQ(row.dateText, u"11:00 AM"_s);
    EXPECT_TRUE(row.isUnread && row.isFlagged && row.hasAttachment);
    EXPECT_EQ(row.accessibleText,
              u"Unread, Starred, Ada, (No Subject), "_s + row.preview + u", Has attachment, 11:00 AM"_s);
    const auto sent = emailRow(email, true);
    EXPECT_EQ(sent.name, u"bob@y.org"_s);
    EXPECT_EQ(sent.domain, u"y.org"_s);
}

TEST_F(EmailListModelTest, AnswersEachRole) {
    model.setEmails({{.uid = 7, .subject = u"S"_s, .from = u"Ada"_s, .seen = true}}, false);
    const auto data = [&](int role) { return model.index(0).data(role); };
    EXPECT_EQ(data(EmailListModel::UIDRole), 7);
    EXPECT_EQ(data(EmailListModel::NameRole), u"Ada"_s);
    EXPECT_EQ(data(EmailListModel::SubjectRole), u"S"_s);
    EXPECT_EQ(data(EmailListModel::IsUnreadRole), false);
    EXPECT_EQ(data(Qt::AccessibleTextRole), u"Ada, S, 12:00 PM"_s);
    EXPECT_FALSE(model.data({}, Qt::DisplayRole).isValid());
}

TEST_F(EmailListModelTest, RenewsItsDatesAtMidnight) {
    auto list = emails({1});
    list[0].date = clock.now().toOffsetFromUtc(0).toString(Qt::ISODate);
    model.setEmails(list, false);
    EXPECT_EQ(model.row(0).dateText, u"12:00 PM"_s);
    clock.advance(std::chrono::hours(12));
    EXPECT_EQ(model.row(0).dateText, u"Sun"_s);
    clock.advance(std::chrono::hours(24 * 7));
    EXPECT_EQ(model.row(0).dateText, u"Mar 1"_s);
    EXPECT_EQ(removed.count(), 0);
}
