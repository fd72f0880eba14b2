#include "compose/EditorScript.h"
#include "web/EditorWindow.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWebEngineView>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorContent : public testing::Test {
protected:
    /// Lets no later piece of a long text in before `comeOn`.
    void holdPieces() { window.evaluate(u"pieces = []; setTimeout = run => pieces.push(run); 0"_s); }
    void comeOn() { window.evaluate(u"while (copying) pieces.pop()(); 0"_s); }
    /// Waits for no more than the first piece.
    void begin() { window.evaluate(EditorScript::setContent(longText()) + u"0"_s); }
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
    begin();
    window.type(u"x"_s);
    EXPECT_TRUE(spinUntil([this] { return window.evaluate(u"editor.firstChild.textContent"_s) == u"x0"_s; }));
    EXPECT_GT(paragraphs(), 100);
    EXPECT_LT(paragraphs(), 5000);
    EXPECT_TRUE(window.reports.isEmpty()) << "a part passes as the message";
    comeOn();
    EXPECT_TRUE(window.waitForReport(longText(u"x"_s)));
}

TEST_F(EditorContent, KeepsWhatIsTypedBeforeThePageIsThere) {
    ComposeEditorView early(std::make_shared<EditorWebViewRef>());
    QStringList reports;
    QObject::connect(&early, &ComposeEditorView::htmlContentChanged, &early,
                     [&](const QString &html) { reports.append(html); });
    early.setInitialContent(u"<br>quoted"_s);
    early.show();
    auto *page = early.findChild<QWebEngineView *>();
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent key(type, 0, Qt::NoModifier, u"x"_s);
        QCoreApplication::sendEvent(page->focusProxy() ? page->focusProxy() : page, &key);
    }
    EXPECT_TRUE(spinUntil([&] { return !reports.isEmpty() && reports.last() == u"x<br>quoted"_s; }));
}

TEST_F(EditorContent, IsWholeForWhoeverAsksEarly) {
    holdPieces();
    begin();
    EXPECT_EQ(window.fetched(), longText());
}

TEST_F(EditorContent, LeavesNothingOfALongTextThatIsDeletedEarly) {
    holdPieces();
    begin();
    window.press(Qt::Key_A, Qt::ControlModifier);
    window.press(Qt::Key_Backspace);
    EXPECT_FALSE(window.fetched()->contains(u"<p>4999"_s));
}

TEST_F(EditorContent, ReplacesALongTextThatIsNotWholeYet) {
    holdPieces();
    begin();
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
    // The program has not been told of this key.
    window.type(u"d"_s);
    ASSERT_TRUE(spinUntil([this] { return window.evaluate(u"editor.innerHTML"_s) == u"abcd"_s; }));
    window.editor->setInitialContent(u"abc<br>-- <br>Dana"_s);
    window.type(u"e"_s);
    EXPECT_EQ(window.fetched(), u"abcde<br>-- <br>Dana"_s);
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
    window.evaluate(EditorScript::setHighlightColor(u"#fef08a"_s) + u"0"_s);
    window.type(u"a"_s);
    ASSERT_EQ(window.fetched(), u"<span style=\"background-color: rgb(254, 240, 138);\">a</span>"_s);
    window.evaluate(EditorScript::setHighlightColor(u"transparent"_s) + u"0"_s);
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
    window.evaluate(EditorScript::setFontSize(u"24px"_s) + u"0"_s);
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
