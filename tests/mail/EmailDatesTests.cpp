#include "mail/EmailDates.h"

#include "support/CoreTest.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

struct WireDateRow {
    const char *name;
    std::optional<QString> text;
    /// ISO 8601 in UTC; empty for "now".
    QString utc;
};

class WireDates : public testing::TestWithParam<WireDateRow> {
protected:
    ManualClock clock;
};

const WireDateRow wireDates[] = {
    {"Unset", {}, {}},
    {"Empty", u""_s, {}},
    {"Garbage", u"yesterday"_s, {}},
    {"IsoMilliseconds", u"2024-05-06T07:08:09.123+0200"_s, u"2024-05-06T05:08:09.123Z"_s},
    {"IsoShortFraction", u"2024-05-06T07:08:09.5Z"_s, u"2024-05-06T07:08:09.500Z"_s},
    {"IsoOffset", u"2024-05-06T07:08:09-0130"_s, u"2024-05-06T08:38:09.000Z"_s},
    {"IsoColonOffset", u"2024-05-06T07:08:09+02:00"_s, u"2024-05-06T05:08:09.000Z"_s},
    {"IsoUTC", u"2024-05-06T07:08:09Z"_s, u"2024-05-06T07:08:09.000Z"_s},
    {"IsoWithoutZone", u"2024-05-06T07:08:09"_s, {}},
    {"IsoNoSuchDay", u"2024-02-30T07:08:09Z"_s, {}},
    {"HeaderWithDay", u"Mon, 06 May 2024 07:08:09 +0200"_s, u"2024-05-06T05:08:09.000Z"_s},
    {"HeaderShortDay", u"Mon, 6 May 2024 07:08:09 +0000"_s, u"2024-05-06T07:08:09.000Z"_s},
    {"HeaderWithoutDay", u"31 Dec 2023 23:59:59 -0800"_s, u"2024-01-01T07:59:59.000Z"_s},
    {"HeaderNamedZone", u"Fri, 01 Mar 2024 00:00:00 GMT"_s, u"2024-03-01T00:00:00.000Z"_s},
    {"HeaderNoSuchMonth", u"06 Mai 2024 07:08:09 +0200"_s, {}},
    {"HeaderMonthAcrossNames", u"06 anf 2024 07:08:09 +0200"_s, {}},
    {"TrailingText", u"2024-05-06T07:08:09Z later"_s, {}},
    {"TrailingNewline", u"2024-05-06T07:08:09Z\n"_s, {}},
};

struct ShownDateRow {
    const char *name;
    QDateTime date;
    QString text;
};

/// Now is Monday, 2 March 2026, 9 o'clock.
class ShownDates : public testing::TestWithParam<ShownDateRow> {
protected:
    void SetUp() override { QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates)); }
    void TearDown() override { QLocale::setDefault(QLocale::system()); }

    ManualClock clock;
};

const ShownDateRow shownDates[] = {
    {"ThisMorning", QDateTime({2026, 3, 2}, {8, 5}), u"8:05 AM"_s},
    {"Midnight", QDateTime({2026, 3, 2}, {0, 0}), u"12:00 AM"_s},
    {"LaterToday", QDateTime({2026, 3, 2}, {21, 30}), u"9:30 PM"_s},
    {"Yesterday", QDateTime({2026, 3, 1}, {23, 59, 59}), u"Sun"_s},
    {"AlmostAWeek", QDateTime({2026, 2, 23}, {9, 0, 1}), u"Mon"_s},
    {"AWeek", QDateTime({2026, 2, 23}, {9, 0}), u"Feb 23"_s},
    {"Future", QDateTime({2027, 6, 1}, {9, 0}), u"Tue"_s},
    {"NewYear", QDateTime({2026, 1, 1}, {0, 0}), u"Jan 1"_s},
    {"LastYear", QDateTime({2025, 12, 31}, {23, 0}), u"Dec 31, 2025"_s},
};

} // namespace

TEST_P(WireDates, AreReadInTheFormsOfTheServer) {
    const auto expected =
        GetParam().utc.isEmpty() ? clock.now() : QDateTime::fromString(GetParam().utc, Qt::ISODateWithMs);
    const auto date = parseEmailDate(GetParam().text);
    EXPECT_EQ(date.toUTC().toString(Qt::ISODateWithMs), expected.toUTC().toString(Qt::ISODateWithMs));
    EXPECT_EQ(date.timeSpec(), Qt::LocalTime);
}

INSTANTIATE_TEST_SUITE_P(, WireDates, testing::ValuesIn(wireDates), rowName);

TEST_P(ShownDates, GetCoarserWithAge) {
    EXPECT_EQ(relativeDateText(GetParam().date), GetParam().text);
    EXPECT_EQ(relativeDateText(GetParam().date.toUTC()), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(, ShownDates, testing::ValuesIn(shownDates), rowName);

TEST(EmailDates, DoNotDependOnTheLanguage) {
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(parseEmailDate(u"Wed, 01 May 2024 00:00:00 +0000"_s).toUTC().date(), QDate(2024, 5, 1));
    QLocale::setDefault(QLocale::system());
}
