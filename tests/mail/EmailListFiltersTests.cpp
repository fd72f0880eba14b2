#include "mail/EmailListFilters.h"

#include "mail/MenuFinder.h"
#include "support/CoreTest.h"

#include <QLocale>
#include <QSignalSpy>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using Day = std::optional<QString>;

/// On 2 March 2026.
class EmailListFiltersTest : public CoreTest {
protected:
    void press(const QString &text) {
        for (const auto &chip : filters->chips())
            if (chip.text == text)
                return chip.press();
        FAIL() << "no such chip";
    }
    QStringList marked() const {
        QStringList texts;
        for (const auto &chip : filters->chips())
            if (chip.isMarked)
                texts.append(chip.text);
        return texts;
    }

    ManualClock clock{QDateTime({2026, 3, 2}, {9, 0})};
    std::shared_ptr<MailboxViewModel> model = std::make_shared<MailboxViewModel>();
    std::shared_ptr<EmailListFilters> filters = std::make_shared<EmailListFilters>(model);
    QSignalSpy reloads{filters.get(), &EmailListFilters::reloadRequested};
};

struct DaysChoice {
    const char *name;
    qint64 before, chosen, after;
    bool keepsRange;
};

class DaysChoices : public EmailListFiltersTest, public testing::WithParamInterface<DaysChoice> {};

const DaysChoice daysChoices[] = {
    {"On", 0, 7, 7, false}, {"Off", 7, 7, 0, true}, {"Other", 30, 1, 1, false}, {"OffAgain", 1, 1, 0, true}};

struct Opening {
    const char *name;
    Day from, to;
    QDate shownFrom, shownTo;
};

class Openings : public EmailListFiltersTest, public testing::WithParamInterface<Opening> {};

const Opening openings[] = {
    {"Unset", {}, {}, {2026, 2, 23}, {2026, 3, 2}},
    {"Both", u"2025-12-31"_s, u"2026-01-02"_s, {2025, 12, 31}, {2026, 1, 2}},
    {"FromInTheFuture", u"2026-05-01"_s, {}, {2026, 5, 1}, {2026, 5, 1}},
    {"ToBeforeTheUsualFrom", {}, u"2026-01-01"_s, {2026, 2, 23}, {2026, 2, 23}},
    {"NoDates", u"soon"_s, u"2026-13-01"_s, {2026, 2, 23}, {2026, 3, 2}},
};

} // namespace

TEST_P(DaysChoices, SwitchAndReplaceARange) {
    model->filterLastDays = GetParam().before;
    model->filterDateFrom = u"2026-01-01"_s;
    filters->chooseDays(GetParam().chosen);
    EXPECT_EQ(model->filterLastDays, GetParam().after);
    EXPECT_EQ(model->filterDateFrom->has_value(), GetParam().keepsRange);
    EXPECT_EQ(reloads.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(, DaysChoices, testing::ValuesIn(daysChoices), rowName);

TEST_P(Openings, ShowTheseDays) {
    model->filterDateFrom = GetParam().from;
    model->filterDateTo = GetParam().to;
    filters->openDateRange();
    EXPECT_TRUE(filters->showCustomDateRange);
    EXPECT_EQ(*filters->customDateFrom, GetParam().shownFrom);
    EXPECT_EQ(*filters->customDateTo, GetParam().shownTo);
    EXPECT_EQ(reloads.count(), 0);
}

INSTANTIATE_TEST_SUITE_P(, Openings, testing::ValuesIn(openings), rowName);

TEST_F(EmailListFiltersTest, TakeARangeInEitherOrder) {
    for (const auto &[one, other] :
         {std::pair(QDate(2026, 1, 9), QDate(2026, 2, 1)), std::pair(QDate(2026, 2, 1), QDate(2026, 1, 9))}) {
        model->filterLastDays = 7;
        filters->openDateRange();
        filters->applyDateRange(one, other);
        EXPECT_EQ(*model->filterDateFrom, u"2026-01-09"_s);
        EXPECT_EQ(*model->filterDateTo, u"2026-02-01"_s);
        EXPECT_EQ(model->filterLastDays, 0);
        EXPECT_FALSE(filters->showCustomDateRange);
    }
    EXPECT_EQ(reloads.count(), 2);
    filters->clearDateRange();
    EXPECT_FALSE(model->hasActiveFilters());
    EXPECT_EQ(reloads.count(), 3);
}

TEST_F(EmailListFiltersTest, NameTheRangeOnceBothEndsAreSet) {
    QLocale::setDefault(QLocale::c());
    model->filterDateFrom = u"2026-01-09"_s;
    EXPECT_EQ(filters->rangeText(), QString());
    EXPECT_EQ(marked(), QStringList{u"Custom Range"_s});
    model->filterDateTo = u"2026-02-01"_s;
    EXPECT_EQ(filters->rangeText(), u"Jan 9 - Feb 1"_s);
    EXPECT_EQ(marked(), QStringList{u"Jan 9 - Feb 1"_s});
    model->filterDateTo = u"later"_s;
    EXPECT_EQ(filters->rangeText(), QString());
    QLocale::setDefault(QLocale::system());
}

TEST_F(EmailListFiltersTest, WorkAsChips) {
    press(u"Has Attachment"_s);
    press(u"Today"_s);
    EXPECT_EQ(marked(), (QStringList{u"Has Attachment"_s, u"Today"_s}));
    press(u"Today"_s);
    press(u"Last 30 Days"_s);
    EXPECT_EQ(marked(), (QStringList{u"Has Attachment"_s, u"Last 30 Days"_s}));
    press(u"Custom Range"_s);
    EXPECT_TRUE(filters->showCustomDateRange);
    EXPECT_EQ(reloads.count(), 4);
    press(u"Clear"_s);
    EXPECT_FALSE(model->hasActiveFilters());
    EXPECT_EQ(reloads.count(), 5);
}

TEST_F(EmailListFiltersTest, WorkAsAMenu) {
    const QStringList usual{u"Has Attachment"_s, u"Today"_s, u"Last 7 Days"_s, u"Last 30 Days"_s,
                            u"Custom Date Range…"_s};
    EXPECT_EQ(entryTexts({filters->menu()}), usual);
    entryNamed({filters->menu()}, {u"Last 7 Days"_s}).perform();
    EXPECT_EQ(model->filterLastDays, 7);
    EXPECT_EQ(entryNamed({filters->menu()}, {u"Last 7 Days"_s}).isChecked, true);
    EXPECT_EQ(entryTexts({filters->menu()}), usual + QStringList{u"Clear Filters"_s});
    entryNamed({filters->menu()}, {u"Clear Filters"_s}).perform();
    EXPECT_FALSE(model->hasActiveFilters());
}
