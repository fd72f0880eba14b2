#include "compose/EditorScript.h"
#include "web/EditorWindow.h"

#include <QApplication>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorContent : public testing::Test {
protected:
    /// Lets no later piece of a long text in before `comeOn`.
    void holdPieces() { window.evaluate(u"pieces = []; setTimeout = run => pieces.push(run); 0"_s); }
    void comeOn() { window.evaluate(u"while (copying) pieces.pop()(); 0"_s); }
    int paragraphs() { return window.evaluate(u"editor.querySelectorAll('p').length"_s).toInt(); }

    static QString longText(const QString &first = {}) {
        auto html = u"<p>"_s + first + u"0</p>"_s;
        for (int number = 1; number < 5000; ++number)
            html += u"<p>%1</p>"_s.arg(number);
        return html;
    }

    EditorWindow window;
};

} // namespace

TEST_F(EditorContent, TakesKeysBeforeALongTextIsWhole) {
    holdPieces();
    window.editor->setInitialContent(longText());
    window.type(u"x"_s);
    EXPECT_TRUE(spinUntil([this] { return window.evaluate(u"editor.firstChild.textContent"_s) == u"x0"_s; }));
    EXPECT_GT(paragraphs(), 100);
    EXPECT_LT(paragraphs(), 5000);
    EXPECT_TRUE(window.reports.isEmpty()) << "a part passes as the message";
    comeOn();
    EXPECT_TRUE(window.waitForReport(longText(u"x"_s)));
}

TEST_F(EditorContent, IsWholeForWhoeverAsksEarly) {
    holdPieces();
    window.editor->setInitialContent(longText());
    EXPECT_EQ(window.fetched(), longText());
}

TEST_F(EditorContent, LeavesNothingOfALongTextThatIsDeletedEarly) {
    holdPieces();
    window.editor->setInitialContent(longText());
    window.press(Qt::Key_A, Qt::ControlModifier);
    window.press(Qt::Key_Backspace);
    EXPECT_FALSE(window.fetched()->contains(u"<p>4999"_s));
}

TEST_F(EditorContent, ReplacesALongTextThatIsNotWholeYet) {
    holdPieces();
    window.editor->setInitialContent(longText());
    window.editor->setInitialContent(u"<p>Other</p>"_s);
    EXPECT_EQ(window.fetched(), u"<p>Other</p>"_s);
    comeOn();
    EXPECT_EQ(window.content(), u"<p>Other</p>"_s);
}

TEST_F(EditorContent, CopiesEveryKindOfNode) {
    const auto html =
        u"<!-- note --><style>p { color: red; }</style><form><input name=\"firstChild\"><input name=\"appendChild\">"
        "</form><template><p>inside</p></template><svg viewBox=\"0 0 1 1\"><linearGradient id=\"editor\">"
        "</linearGradient></svg><table><tbody><tr><td>a</td></tr></tbody></table><pre> b\n</pre>end"_s;
    window.fill(html);
    EXPECT_EQ(window.content(), html);
}

TEST_F(EditorContent, LeavesWhatWasWrittenWithItsCaret) {
    window.type(u"abc"_s);
    ASSERT_EQ(window.fetched(), u"abc"_s);
    window.editor->setInitialContent(u"abc<br>-- <br>Dana"_s);
    window.type(u"d"_s);
    EXPECT_EQ(window.fetched(), u"abcd<br>-- <br>Dana"_s);
    window.editor->setInitialContent(u"Dear all"_s);
    EXPECT_EQ(window.fetched(), u"Dear all"_s);
}

TEST_F(EditorContent, WritesOnWhereItWasAfterACommand) {
    const struct {
        QString command, held;
    } rows[]{
        {EditorScript::command(u"insertUnorderedList"_s), u"<ul><li>one twox</li></ul>"_s},
        {EditorScript::command(u"insertUnorderedList"_s).repeated(2), u"one twox<br>"_s},
        {EditorScript::command(u"insertOrderedList"_s), u"<ol><li>one twox</li></ol>"_s},
        {EditorScript::setHighlightColor(u"#fef08a"_s) + EditorScript::setHighlightColor(u"transparent"_s),
         u"one twox"_s},
    };
    for (const auto &row : rows) {
        window.evaluate(EditorScript::setContent({}) + u"0"_s);
        window.type(u"one two"_s);
        ASSERT_EQ(window.fetched(), u"one two"_s);
        window.evaluate(row.command + u"0"_s);
        window.type(u"x"_s);
        EXPECT_EQ(window.fetched(), row.held) << qPrintable(row.command);
    }
}

TEST_F(EditorContent, EndsAHighlightAtTheCaret) {
    window.ref->run(EditorScript::setHighlightColor(u"#fef08a"_s));
    window.type(u"a"_s);
    ASSERT_EQ(window.fetched(), u"<span style=\"background-color: rgb(254, 240, 138);\">a</span>"_s);
    window.ref->run(EditorScript::setHighlightColor(u"transparent"_s));
    window.type(u"b"_s);
    EXPECT_EQ(window.fetched(), u"<span style=\"background-color: rgb(254, 240, 138);\">a</span>b"_s);
}

TEST_F(EditorContent, ShowsACommandThatWaitsForTheNextLetter) {
    window.ref->run(EditorScript::command(u"italic"_s));
    EXPECT_TRUE(spinUntil([this] { return window.ref->activeCommands->contains(u"italic"_s); }));
    window.ref->run(EditorScript::command(u"italic"_s));
    EXPECT_TRUE(spinUntil([this] { return !window.ref->activeCommands->contains(u"italic"_s); }));
}

TEST_F(EditorContent, SizesOnlyWhatTheSizeWasChosenFor) {
    window.ref->run(EditorScript::setFontSize(u"24px"_s));
    window.type(u"a"_s);
    EXPECT_EQ(window.fetched(), u"<font style=\"font-size: 24px;\">a</font>"_s);
    window.fill(u"x<font size=\"7\">quoted</font>"_s);
    window.type(u"b"_s);
    EXPECT_EQ(window.fetched(), u"bx<font size=\"7\">quoted</font>"_s);
}

TEST_F(EditorContent, KeepsRelativeAddressesThroughTheClipboard) {
    const auto html = u"<p><a href=\"example.com\">a</a> <a href=\"#top\">b</a> "
                      "<a href=\"https://x.test/\">c</a></p>"_s;
    window.fill(html);
    window.press(Qt::Key_A, Qt::ControlModifier);
    window.press(Qt::Key_X, Qt::ControlModifier);
    ASSERT_FALSE(window.fetched()->contains(u"href"_s));
    window.press(Qt::Key_V, Qt::ControlModifier);
    const auto pasted = window.fetched().value_or(QString());
    for (const auto *address : {"href=\"example.com\"", "href=\"#top\"", "href=\"https://x.test/\""})
        EXPECT_TRUE(pasted.contains(QString::fromLatin1(address))) << qPrintable(pasted);
}
