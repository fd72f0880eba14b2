#include "net/JSONText.h"

#include "support/CoreTest.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace {

struct Item {
    qint64 uid = 0;
    std::optional<QString> name;

    bool operator==(const Item &) const = default;
};

struct Page {
    QString title;
    bool isLast = false;
    double share = 0;
    qint64 total = 0;
    std::vector<Item> items;
    std::map<QString, qint64> counts;
    std::optional<Item> first;
    std::optional<std::vector<QString>> tags;
    std::optional<bool> flag;
    std::optional<JSONValue> extra;

    bool operator==(const Page &) const = default;
};

} // namespace

template <>
inline constexpr auto jsonFields<Item> = jsonRecord(jsonField("uid", &Item::uid), jsonField("name", &Item::name));

template <>
inline constexpr auto
    jsonFields<Page> = jsonRecord(jsonField("title", &Page::title), jsonField("is_last", &Page::isLast),
                                  jsonField("share", &Page::share), jsonField("total", &Page::total),
                                  jsonField("items", &Page::items), jsonField("counts", &Page::counts),
                                  jsonField("first", &Page::first), jsonField("tags", &Page::tags),
                                  jsonField("flag", &Page::flag), jsonField("extra", &Page::extra));

namespace {

class JSONRecordTest : public CoreTest {};

/// A page whose text is whole but for one field.
QByteArray pageWith(const QByteArray &key, const QByteArray &value) {
    QList<std::pair<QByteArray, QByteArray>> fields{{"title", "\"t\""}, {"is_last", "true"}, {"share", "0.5"},
                                                    {"total", "3"},     {"items", "[]"},     {"counts", "{}"}};
    QByteArrayList texts;
    if (!value.isEmpty())
        texts.append('"' + key + "\":" + value);
    for (const auto &[name, text] : fields)
        if (name != key)
            texts.append('"' + name + "\":" + text);
    return '{' + texts.join(',') + '}';
}

template <typename T> QString decodingFailure(const QByteArray &text) {
    try {
        decodeJSONText<T>(text);
        return {};
    } catch (const DecodingError &error) {
        return error.description();
    }
}

} // namespace

TEST_F(JSONRecordTest, aWrongKindFailsWithItsPlace) {
    struct Row {
        QByteArray key, value;
        QString error;
    };
    const Row table[] = {
        {"title", "", u"title: expected a text"_s},
        {"title", "null", u"title: expected a text"_s},
        {"title", "5", u"title: expected a text"_s},
        {"title", "[\"t\"]", u"title: expected a text"_s},
        {"is_last", "1", u"is_last: expected true or false"_s},
        {"is_last", "\"true\"", u"is_last: expected true or false"_s},
        {"share", "\"0.5\"", u"share: expected a number"_s},
        {"share", "true", u"share: expected a number"_s},
        {"total", "3.5", u"total: expected a whole number"_s},
        {"total", "\"3\"", u"total: expected a number"_s},
        {"total", "1e30", u"total: expected a whole number"_s},
        {"total", "9223372036854775808", u"total: expected a whole number"_s},
        {"total", "false", u"total: expected a number"_s},
        {"items", "{}", u"items: expected a list"_s},
        {"items", "null", u"items: expected a list"_s},
        {"items", "[{\"uid\":1},3]", u"items[1]: expected an object"_s},
        {"items", "[{\"uid\":1},{\"uid\":2},{}]", u"items[2].uid: expected a number"_s},
        {"items", "[{\"uid\":1,\"name\":2}]", u"items[0].name: expected a text"_s},
        {"counts", "[]", u"counts: expected an object"_s},
        {"counts", "{\"INBOX\":1,\"S\u00e9nt\":\"2\"}", u"counts.S\u00e9nt: expected a number"_s},
        {"first", "[]", u"first: expected an object"_s},
        {"first", "{\"name\":\"x\"}", u"first.uid: expected a number"_s},
        {"tags", "[\"a\",null]", u"tags[1]: expected a text"_s},
        {"tags", "\"a\"", u"tags: expected a list"_s},
        {"flag", "0", u"flag: expected true or false"_s},
    };
    for (const auto &row : table)
        EXPECT_EQ(decodingFailure<Page>(pageWith(row.key, row.value)), row.error) << row.value.toStdString();
    EXPECT_EQ(decodingFailure<Page>("[]"), u"The answer: expected an object"_s);
    EXPECT_EQ(decodingFailure<std::vector<Item>>("[{\"uid\":1},{}]"), u"[1].uid: expected a number"_s);
    EXPECT_EQ(decodingFailure<std::vector<Item>>("{}"), u"The answer: expected a list"_s);
}

TEST_F(JSONRecordTest, optionalFieldsMayBeAbsentOrNull) {
    for (const QByteArray value : {"", "null"})
        for (const QByteArray key : {"first", "tags", "flag", "extra"}) {
            const auto page = decodeJSONText<Page>(pageWith(key, value));
            EXPECT_FALSE(page.first || page.tags || page.flag || page.extra) << key.toStdString();
        }
}

TEST_F(JSONRecordTest, wholeNumbersAreExact) {
    const std::vector<std::pair<QByteArray, qint64>> table{{"3", 3},
                                                           {"3.0", 3},
                                                           {"-0", 0},
                                                           {"3e2", 300},
                                                           {"9007199254740993", 9007199254740993},
                                                           {"9223372036854775807", INT64_MAX},
                                                           {"-9223372036854775808", INT64_MIN}};
    for (const auto &[text, number] : table)
        EXPECT_EQ(decodeJSONText<Page>(pageWith("total", text)).total, number) << text.toStdString();
}

TEST_F(JSONRecordTest, unknownFieldsAreIgnoredAndTheLastOfTwoWins) {
    EXPECT_EQ(decodeJSONText<Item>("{\"x\":[{}],\"uid\":1,\"uid\":2}"), (Item{2, std::nullopt}));
}

TEST_F(JSONRecordTest, encodesOnlyWhatIsSet) {
    EXPECT_EQ(encodeJSONText(Item{7, std::nullopt}), "{\"uid\":7}");
    EXPECT_EQ(encodeJSONText(Item{7, u""_s}), "{\"uid\":7,\"name\":\"\"}");
    EXPECT_EQ(encodeJSONText(std::vector{Item{INT64_MAX, u"\u00e4\n"_s}, Item()}),
              "[{\"uid\":9223372036854775807,\"name\":\"\xc3\xa4\\n\"},{\"uid\":0}]");
    EXPECT_EQ(encodeJSONText(std::vector<Item>()), "[]");
    EXPECT_EQ(encodeJSONText(QJsonObject()), "{}");
}

TEST_F(JSONRecordTest, writesBytesAsOneBase64Text) {
    EXPECT_EQ(encodeJSONText(QByteArray()), "\"\"");
    // Around the pieces in which large files are written.
    for (const qsizetype size : {1, 2, 3, 49151, 49152, 49153, 98304, 200000}) {
        QByteArray bytes(size, Qt::Uninitialized);
        std::iota(bytes.begin(), bytes.end(), 0);
        const auto text = encodeJSONText(bytes);
        ASSERT_EQ(text.size(), (size + 2) / 3 * 4 + 2);
        const auto decoded =
            QByteArray::fromBase64Encoding(text.sliced(1, text.size() - 2), QByteArray::AbortOnBase64DecodingErrors);
        EXPECT_TRUE(decoded && *decoded == bytes) << size;
    }
}

namespace {

struct AwkwardText {
    const char *name;
    QString text;
    QByteArray json;
};

class AwkwardTexts : public JSONRecordTest, public testing::WithParamInterface<AwkwardText> {};

const AwkwardText awkwardTexts[] = {
    {"Backslashes", u"a\\b\\\\"_s, R"("a\\b\\\\")"},
    {"Quotes", u"\"'`"_s, R"("\"'`")"},
    {"LineEnds", u"a\r\nb\tc"_s, R"("a\r\nb\tc")"},
    {"LineSeparators", u"a\u2028b\u2029"_s,
     "\"a\xe2\x80\xa8"
     "b\xe2\x80\xa9\""},
    {"Nul", u"a\0b"_s, R"("a\u0000b")"},
    {"LoneSurrogates", QString() + QChar(0xd83d) + u'a' + QChar(0xdc00), R"("\ud83da\udc00")"},
    {"Emoji", u"\U0001f469\u200d\U0001f4bb"_s, "\"\xf0\x9f\x91\xa9\xe2\x80\x8d\xf0\x9f\x92\xbb\""},
    {"Markup", u"<p class=\"x\">&amp;</p>"_s, R"("<p class=\"x\">&amp;</p>")"},
    {"Nothing", QString(), "\"\""},
};

} // namespace

TEST_P(AwkwardTexts, AreWrittenWhole) {
    EXPECT_EQ(encodeJSONText(GetParam().text), GetParam().json);
}

INSTANTIATE_TEST_SUITE_P(, AwkwardTexts, testing::ValuesIn(awkwardTexts), rowName);

TEST_F(JSONRecordTest, aRecordSurvivesTheWay) {
    const Page page{.title = u"t \U0001f600"_s,
                    .isLast = true,
                    .share = 0.1,
                    .total = 9007199254740993,
                    .items = {{1, u"one"_s}, {2, std::nullopt}},
                    .counts = {{u"INBOX"_s, 3}},
                    .first = Item{1, u"one"_s},
                    .tags = std::vector<QString>{u"a"_s, u""_s},
                    .flag = false,
                    .extra = JSONValue{JSONValue::Array{{nullptr}, {1.5}}}};
    EXPECT_EQ(decodeJSONText<Page>(encodeJSONText(page)), page);
}

TEST_F(JSONRecordTest, whatIsNoJSONFails) {
    for (const QByteArray text : {"", " ", "{", "{\"a\":}", "{} x", "{'a':1}", "\xff", "nul", "[1,]"})
        EXPECT_TRUE(decodingFailure<JSONValue>(text).startsWith(u"The server's answer is no valid JSON: "_s))
            << text.toStdString();
}

TEST_F(JSONRecordTest, deepNestingFailsInsteadOfOverflowing) {
    const QByteArray deep = QByteArray("[").repeated(100000) + QByteArray("]").repeated(100000);
    EXPECT_NE(decodingFailure<JSONValue>(deep), QString());
    const QByteArray moderate = QByteArray("[").repeated(500) + QByteArray("]").repeated(500);
    EXPECT_EQ(jsonText(decodeJSONText<JSONValue>(moderate).toJson()), moderate);
}

TEST_F(JSONRecordTest, aJSONValueTakesEveryKind) {
    using Array = JSONValue::Array;
    using Object = JSONValue::Object;
    const std::vector<std::pair<QByteArray, JSONValue>> table{
        {"null", {nullptr}},
        {"true", {true}},
        {"0", {0.0}},
        {"1", {1.0}},
        {"-1.5", {-1.5}},
        {"\"\"", {u""_s}},
        {"\"1\"", {u"1"_s}},
        {"[]", {Array()}},
        {"{}", {Object()}},
        {"[1,\"a\",null,[false]]", {Array{{1.0}, {u"a"_s}, {nullptr}, {Array{{false}}}}}},
        {"{\"a\":{\"b\":[{}]}}", {Object{{u"a"_s, {Object{{u"b"_s, {Array{{Object()}}}}}}}}}},
    };
    for (const auto &[text, value] : table) {
        const auto list = "[" + text + "]";
        EXPECT_EQ(decodeJSONText<JSONValue>(list), JSONValue{Array{value}}) << text.toStdString();
        EXPECT_EQ(jsonText(JSONValue{Array{value}}.toJson()), list);
    }
}
