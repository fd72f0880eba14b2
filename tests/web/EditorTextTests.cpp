#include "web/EditorWindow.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct TextRow {
    const char *name;
    QString given;
    /// As the page holds it, in HTML; what was given if empty.
    QString held = {};
};

class EditorText : public testing::TestWithParam<TextRow> {
protected:
    EditorWindow window;
};

QString brackets(const QString &inner) {
    return u"<p>["_s + inner + u"]</p>"_s;
}

} // namespace

TEST_P(EditorText, ComesBackAsThePageShowsIt) {
    const auto expected = brackets(GetParam().held.isEmpty() ? GetParam().given : GetParam().held);
    window.fill(brackets(GetParam().given));
    EXPECT_TRUE(window.reports.last() == expected) << qPrintable(window.reports.last().left(200));
    EXPECT_TRUE(window.fetched() == expected);
}

INSTANTIATE_TEST_SUITE_P(
    , EditorText,
    testing::Values(
        TextRow{"Backslashes", u"\\ \\\\ \\n \\u0041 C:\\new"_s}, TextRow{"Quotes", u"it's \"so\" `so` ${1} \\'"_s},
        TextRow{"LineEnds", u"a\nb\r\nc\rd"_s, u"a\nb\ncd"_s}, TextRow{"LineSeparators", u"a\u2028b\u2029c\u0085d"_s},
        TextRow{"Null", u"a"_s + QChar(0) + u"b"_s, u"ab"_s},
        TextRow{"Controls", u"a\u0001\u0008\u001b\u007f\ufeffb"_s},
        TextRow{"LoneSurrogates", u"a"_s + QChar(0xd800) + u"b"_s + QChar(0xdc00) + u"c"_s, u"a\ufffdb\ufffdc"_s},
        TextRow{"Emoji", u"\U0001F600\U0001F468\u200d\U0001F469\u200d\U0001F467\ufe0f\u202e"_s},
        TextRow{"Noncharacters", u"\ufffe\uffff\U0010fffd"_s},
        TextRow{"ScriptEnd", u"a</script></style></textarea>b"_s, u"ab"_s},
        TextRow{"LongLine", QString(1024 * 1024, u'x')}, TextRow{"LongPairs", u"\U0001F600"_s.repeated(400000)},
        TextRow{"LongOddPairs", u"x"_s + u"\U0001F600"_s.repeated(400000)},
        TextRow{"LongQuotes", u"\\'\n"_s.repeated(300000)}),
    [](const auto &row) { return std::string(row.param.name); });
