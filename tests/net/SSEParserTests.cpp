#include "net/SSEParser.h"

#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

using Events = std::vector<SSEEvent>;

void append(Events &events, Events more) {
    events.insert(events.end(), more.begin(), more.end());
}

Events parse(const QList<QByteArray> &chunks) {
    SSEParser parser;
    Events events;
    for (const auto &chunk : chunks)
        append(events, parser.append(chunk));
    return events;
}

/// What comes of the text when it is cut in two at each of its places, and when it comes byte by byte.
void expectHoweverCut(const QByteArray &text, const Events &expected) {
    for (qsizetype cut = 0; cut <= text.size(); ++cut)
        ASSERT_EQ(parse({text.first(cut), text.sliced(cut)}), expected) << "cut at " << cut;
    QList<QByteArray> bytes;
    for (const char byte : text)
        bytes.append(QByteArray(1, byte));
    EXPECT_EQ(parse(bytes), expected) << "byte by byte";
}

struct Row {
    const char *name;
    QByteArray text;
    Events events;
};

void PrintTo(const Row &row, std::ostream *stream) {
    *stream << row.text.toStdString();
}

const SSEEvent plain{u"mail"_s, "{\"a\":1}"};

const Row rows[] = {
    {"plain", "event: mail\ndata: {\"a\":1}\n\n", {plain}},
    {"withoutBlanks", "event:mail\ndata:{\"a\":1}\n\n", {plain}},
    {"oneBlankOnlyIsTaken", "event: mail\ndata:  x \n\n", {{u"mail"_s, " x "}}},
    {"tabIsNoBlank", "event: mail\ndata:\tx\n\n", {{u"mail"_s, "\tx"}}},
    {"carriageReturnLineFeed", "event: mail\r\ndata: {\"a\":1}\r\n\r\n", {plain}},
    {"carriageReturn", "event: mail\rdata: {\"a\":1}\r\r", {plain}},
    {"mixedLineEnds", "event: mail\r\ndata: {\"a\":1}\r\n\nevent: mail\rdata: {\"a\":1}\n\r", {plain, plain}},
    {"manyEmptyLines", "\n\n\n\nevent: mail\ndata: {\"a\":1}\n\n\n\n\n", {plain}},
    {"twoEvents", "event: a\ndata: 1\n\nevent: b\ndata: 2\n\n", {{u"a"_s, "1"}, {u"b"_s, "2"}}},
    {"dataFirst", "data: {\"a\":1}\nevent: mail\n\n", {plain}},
    {"twoDataLines", "event: mail\ndata: {\ndata: }\n\n", {{u"mail"_s, "{\n}"}}},
    {"emptyDataLineBetween", "event: mail\ndata: a\ndata\ndata:\ndata: b\n\n", {{u"mail"_s, "a\n\nb"}}},
    {"lastNameWins", "event: first\nevent: second\ndata: x\n\n", {{u"second"_s, "x"}}},
    {"nameEmptiedAgain", "event: first\nevent:\ndata: x\n\n", {}},
    {"colonInValue", "event: a:b\ndata: {\"u\":\"http://x\"}\n\n", {{u"a:b"_s, "{\"u\":\"http://x\"}"}}},
    {"comments", ": hello\n\n:\n\n: event: mail\nevent: mail\n:data: no\ndata: {\"a\":1}\n\n", {plain}},
    {"otherFields", "id: 5\nretry: 1\nevent: mail\nfoo: bar\nno colon\ndata: {\"a\":1}\n\n", {plain}},
    {"fieldNamesAreExact", "Event: mail\n event: mail\nevent : mail\ndata: x\n\n", {}},
    {"withoutName", "data: {\"a\":1}\n\nevent: mail\ndata: {\"a\":1}\n\n", {plain}},
    {"withoutData", "event: mail\n\nevent: mail\ndata:\n\nevent: mail\ndata: {\"a\":1}\n\n", {plain}},
    {"notEnded", "event: mail\ndata: {\"a\":1}\n", {}},
    {"lineFeedAfterCarriageReturnEnd",
     "event: mail\rdata: {\"a\":1}\r\n\r\nevent: b\ndata: 2\n\n",
     {plain, {u"b"_s, "2"}}},
    {"characters",
     "event: m\xc3\xa4il\ndata: \xe2\x82\xac\xf0\x9f\x98\x80\n\n",
     {{u"mäil"_s, "\xe2\x82\xac\xf0\x9f\x98\x80"}}},
    {"zeroByte", QByteArray("event: mail\ndata: a\0b\n\n", 24), {{u"mail"_s, QByteArray("a\0b", 3)}}},
};

class SSEParserTest : public CoreTest {};
class SSEParserTableTest : public CoreTest, public testing::WithParamInterface<Row> {};

} // namespace

TEST_P(SSEParserTableTest, givesTheSameEventsHoweverTheBytesAreCut) {
    expectHoweverCut(GetParam().text, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(Texts, SSEParserTableTest, testing::ValuesIn(rows), rowName);

TEST_F(SSEParserTest, bytesThatAreNoTextStopTheDeliveryForGood) {
    const QByteArray event = "event: mail\ndata: {\"a\":1}\n\n";
    // Overlong forms, surrogates, beyond the last character, stray and missing continuations.
    for (const QByteArray bad : {"\x80", "\xc0\xaf", "\xc1\x81", "\xe0\x80\xaf", "\xed\xa0\x80", "\xf0\x8f\xbf\xbf",
                                 "\xf4\x90\x80\x80", "\xf5\x80\x80\x80", "\xff", "\xc3(", "\xe2\x82(", "\xf0\x9f\x98("})
        EXPECT_EQ(parse({event, bad, event, event}), Events{plain}) << bad.toHex().toStdString();
}

TEST_F(SSEParserTest, theEdgesOfEachFormOfCharacterPass) {
    for (const QByteArray good :
         {"\x7f", "\xc2\x80", "\xdf\xbf", "\xe0\xa0\x80", "\xec\xbf\xbf", "\xed\x9f\xbf", "\xee\x80\x80",
          "\xef\xbf\xbf", "\xf0\x90\x80\x80", "\xf3\xbf\xbf\xbf", "\xf4\x8f\xbf\xbf"})
        expectHoweverCut("event: mail\ndata: " + good + "\n\n", {{u"mail"_s, good}});
}

TEST_F(SSEParserTest, aGreatEventInSmallChunksIsOneEvent) {
    const QByteArray content(10 << 20, 'x');
    const auto text = "event: mail\ndata: " + content + "\n\n";
    SSEParser parser;
    Events events;
    for (qsizetype start = 0; start < text.size(); start += 1024)
        append(events, parser.append(text.mid(start, 1024)));
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events.front().data, content);
}

TEST_F(SSEParserTest, manyEventsInOneChunkAllCome) {
    EXPECT_EQ(parse({QByteArray("event: mail\ndata: {\"a\":1}\n\n").repeated(10000)}), Events(10000, plain));
}
