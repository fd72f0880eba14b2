#include "compose/screens/ComposeEditorView.h"
#include "compose/screens/EditorWebViewRef.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// The editor as it is where there is no web engine, above a field.
class PlainEditorTest : public ScreenTest {
protected:
    PlainEditorTest() {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(editor);
        column->addWidget(after);
        QObject::connect(editor, &ComposeEditorView::htmlContentChanged, editor,
                         [this](const QString &html) { reports.append(html); });
        window.resize(400, 300);
        showActive(window);
        editor->focusEditor();
    }
    QPlainTextEdit *text() const { return visibleNamed<QPlainTextEdit>(window, u"Message"_s); }
    QString fetched() const {
        std::optional<QString> result;
        editor->fetchContent([&](const std::optional<QString> &html) { result = html; });
        return result.value_or(u"nothing"_s);
    }

    QWidget window;
    ComposeEditorView *editor = new ComposeEditorView(std::make_shared<EditorWebViewRef>());
    QLineEdit *after = new QLineEdit;
    QStringList reports;
};

} // namespace

TEST_F(PlainEditorTest, TypedCharactersAreNoMarkup) {
    QTest::keyClicks(text(), u"1 < 2 & <b>\"x\"</b>"_s);
    QTest::keyClick(text(), Qt::Key_Return);
    QTest::keyClicks(text(), u"end"_s);
    EXPECT_EQ(fetched(), u"1 &lt; 2 &amp; &lt;b&gt;&quot;x&quot;&lt;/b&gt;<br>end"_s);
    ASSERT_FALSE(reports.isEmpty());
    EXPECT_EQ(reports.last(), fetched());
}

TEST_F(PlainEditorTest, BlanksThatMarkupWouldLoseAreKept) {
    const std::pair<QString, QString> rows[] = {
        {u"a b\nc d"_s, u"a b<br>c d"_s},
        {u" a\n  b\n\n   c"_s, u"&nbsp;a<br>&nbsp; b<br><br>&nbsp;&nbsp; c"_s},
        {u"a  b   c &  d"_s, u"a&nbsp; b&nbsp;&nbsp; c &amp;&nbsp; d"_s},
        {u"\tx"_s, u"&nbsp;&nbsp;&nbsp; x"_s},
    };
    for (const auto &[typed, html] : rows) {
        text()->setPlainText(typed);
        EXPECT_EQ(fetched(), html);
    }
}

TEST_F(PlainEditorTest, AReplyIsItsWordsUnderAnEmptyLine) {
    editor->setInitialContent(
        u"<br><br><div style=\"color:#666;\"><p>On Monday, <b>Ada</b> wrote:</p>a &lt; b</div>"_s);
    EXPECT_TRUE(text()->toPlainText().contains(u"On Monday, Ada wrote:"_s));
    EXPECT_TRUE(text()->toPlainText().endsWith(u"a < b"_s));
    EXPECT_FALSE(fetched().contains(u"style"_s));
    QTest::keyClicks(text(), u"Yes"_s);
    EXPECT_TRUE(text()->toPlainText().startsWith(u"Yes"_s)) << "the caret is not above the quotation";
}

TEST_F(PlainEditorTest, TheSameContentDoesNotTakeThePlaceOfWhatWasTyped) {
    editor->setInitialContent(u"<p>first</p>"_s);
    QTest::keyClicks(text(), u"typed "_s);
    editor->setInitialContent(u"<p>first</p>"_s);
    editor->setInitialContent({});
    EXPECT_EQ(text()->toPlainText().trimmed(), u"typed first"_s);
    editor->setInitialContent(u"<p>second</p>"_s);
    EXPECT_EQ(text()->toPlainText().trimmed(), u"second"_s);
}

TEST_F(PlainEditorTest, KeyboardLeavesIt) {
    EXPECT_TRUE(text()->hasFocus());
    QTest::keyClick(text(), Qt::Key_Tab);
    EXPECT_TRUE(after->hasFocus());
    EXPECT_EQ(text()->toPlainText(), QString());
}

TEST_F(PlainEditorTest, DroppedLinkIsText) {
    QMimeData link;
    link.setUrls({QUrl(u"https://x.test/b"_s)});
    link.setText(u"https://x.test/b"_s);
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &link, Qt::LeftButton, {});
    QApplication::sendEvent(text()->viewport(), &enter);
    QDropEvent drop({5, 5}, Qt::CopyAction, &link, Qt::LeftButton, {});
    QApplication::sendEvent(text()->viewport(), &drop);
    EXPECT_EQ(text()->toPlainText(), u"https://x.test/b"_s);
}
