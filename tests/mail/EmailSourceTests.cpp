#include "mail/EmailSource.h"

#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

struct SourceRow {
    const char *name;
    QString source;
    EmailSource parts;
};

class Sources : public testing::TestWithParam<SourceRow> {};

const SourceRow sources[] = {
    {"HeadersAndBody", u"A: 1\r\nB: 2\r\n\r\nbody\r\n\r\nmore"_s, {u"A: 1\nB: 2"_s, u"body\r\n\r\nmore"_s}},
    {"HeadersAlone", u"A: 1\r\nB: 2"_s, {u"A: 1\nB: 2"_s, std::nullopt}},
    {"EmptyBody", u"A: 1\r\n\r\n"_s, {u"A: 1"_s, QString()}},
    {"OtherLineEndsSeparateNothing", u"A: 1\n\nbody"_s, {u"A: 1\n\nbody"_s, std::nullopt}},
    {"Empty", QString(), {QString(), std::nullopt}},
};

} // namespace

TEST_P(Sources, AreSplitAtTheFirstEmptyLine) {
    EXPECT_EQ(splitSource(GetParam().source), GetParam().parts);
}

INSTANTIATE_TEST_SUITE_P(, Sources, testing::ValuesIn(sources), rowName);

TEST(EmailSource, HeaderNamesEndWithTheFirstColon) {
    EXPECT_EQ(headerNameLength(u"Subject: Re: x"_s), 8);
    EXPECT_EQ(headerNameLength(u" folded line"_s), 0);
    EXPECT_EQ(headerNameLength(u":"_s), 1);
}
