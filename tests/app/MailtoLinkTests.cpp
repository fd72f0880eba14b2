#include "app/MailtoLink.h"

#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

struct LinkRow {
    const char *name;
    QString url;
    MailtoLink link;
};

void PrintTo(const LinkRow &row, std::ostream *stream) {
    *stream << row.name;
}

class MailtoLinks : public CoreTest, public testing::WithParamInterface<LinkRow> {};

const LinkRow links[] = {
    {"Address", u"mailto:a@b"_s, {.to = u"a@b"_s}},
    {"Encoded", u"mailto:a%20b%40c,d@e"_s, {.to = u"a b@c,d@e"_s}},
    {"AllFields",
     u"mailto:a@b?subject=S%20%C3%BC&cc=c@c&bcc=d@d&body=1%0D%0A2&in-reply-to=x"_s,
     {u"a@b"_s, u"S ü"_s, u"c@c"_s, u"d@d"_s, u"1\r\n2"_s}},
    {"KeysInAnyCase", u"mailto:a@b?Subject=S&BODY=B"_s, {.to = u"a@b"_s, .subject = u"S"_s, .body = u"B"_s}},
    {"NoAddress", u"mailto:?subject=S"_s, {.subject = u"S"_s}},
    {"KeyWithoutValue", u"mailto:a@b?subject=&cc&=x&body=B"_s, {.to = u"a@b"_s, .body = u"B"_s}},
    {"LaterOneWins", u"mailto:?cc=1&&cc=2"_s, {.cc = u"2"_s}},
    {"SeparatorsInAValue", u"mailto:a@b?subject=1=2?3"_s, {.to = u"a@b"_s, .subject = u"1=2?3"_s}},
    {"EncodedSeparators", u"mailto:a@b?subject=1%262%3D3"_s, {.to = u"a@b"_s, .subject = u"1&2=3"_s}},
    {"PlusIsNoBlank", u"mailto:a+b@c?subject=1+2"_s, {.to = u"a+b@c"_s, .subject = u"1+2"_s}},
    {"MalformedStandsForItself",
     u"mailto:50%@b?subject=50% off%20now&body=%FF&cc=a%20b"_s,
     {.to = u"50%@b"_s, .subject = u"50% off%20now"_s, .cc = u"a b"_s, .body = u"%FF"_s}},
    {"SchemeInCapitals", u"MAILTO:a@b"_s, {.to = u"a@b"_s}},
    {"Nothing", u"mailto:"_s, {}},
    {"AnotherScheme", u"https://example.test"_s, {}},
};

} // namespace

TEST_P(MailtoLinks, AreReadFieldByField) {
    EXPECT_EQ(parseMailto(GetParam().url), GetParam().link);
}

INSTANTIATE_TEST_SUITE_P(, MailtoLinks, testing::ValuesIn(links), rowName);
