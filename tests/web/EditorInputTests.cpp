#include "web/EditorWindow.h"
#include "web/TrackingServer.h"

#include <QBuffer>
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QImage>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>
#include <QWebEngineView>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorInputTest : public testing::Test {
protected:
    QWidget *dropTarget() const { return window.editor->findChild<QWebEngineView *>(); }

    /// True when the editor offered to copy.
    bool drop(QMimeData *data, QPoint place) {
        std::unique_ptr<QMimeData> owned(data);
        QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dropTarget(), &enter);
        QDragMoveEvent move(place, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dropTarget(), &move);
        QDropEvent dropped(place, Qt::CopyAction | Qt::MoveAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dropTarget(), &dropped);
        return enter.isAccepted() && dropped.isAccepted() && dropped.dropAction() == Qt::CopyAction;
    }

    void inputMethod(const QString &preedit, const QString &committed) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(committed);
        QCoreApplication::sendEvent(window.input(), &event);
    }

    EditorWindow window;
};

} // namespace

TEST_F(EditorInputTest, AttachesDroppedFilesAndPutsNothingIntoTheText) {
    auto *data = new QMimeData;
    data->setUrls({QUrl(u"file:///tmp/a.png"_s), QUrl(u"https://x.test/b"_s), QUrl(u"file:///tmp/b%20c"_s)});
    EXPECT_TRUE(drop(data, {100, 50}));
    EXPECT_EQ(window.attached, (QList{QUrl(u"file:///tmp/a.png"_s), QUrl(u"file:///tmp/b%20c"_s)}));
    EXPECT_EQ(window.content(), QString());
}

TEST_F(EditorInputTest, TellsWhileFilesAreHeldOverIt) {
    QList<bool> held;
    QObject::connect(window.editor, &ComposeEditorView::filesHeld, &window, [&](bool areHeld) { held << areHeld; });
    QMimeData files, words;
    files.setUrls({QUrl(u"file:///tmp/a.png"_s)});
    words.setUrls({QUrl(u"https://x.test/b"_s)});
    for (const auto *data : {&words, &files}) {
        QDragEnterEvent enter({100, 50}, Qt::CopyAction, data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(dropTarget(), &enter);
        EXPECT_EQ(held, data == &files ? QList{true} : QList<bool>()) << "a link goes into the text";
    }
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(dropTarget(), &leave);
    EXPECT_EQ(held, (QList{true, false}));
}

TEST_F(EditorInputTest, PutsDroppedWordsIntoTheText) {
    window.fill(u"<p>x</p>"_s);
    auto *data = new QMimeData;
    data->setText(u"dropped words"_s);
    drop(data, {18, 24});
    EXPECT_TRUE(spinUntil([&] { return window.content().contains(u"dropped words"_s); }));
    EXPECT_TRUE(window.attached.isEmpty());
}

TEST_F(EditorInputTest, PutsAPastedImageIntoTheText) {
    QImage image(3, 2, QImage::Format_RGB32);
    image.fill(Qt::red);
    QGuiApplication::clipboard()->setImage(image);
    window.editor->paste();
    ASSERT_TRUE(spinUntil([&] { return !window.reports.isEmpty() && window.reports.last().contains(u"<img"_s); }));
    EXPECT_TRUE(window.reports.last().startsWith(u"<img src=\"data:image/png;base64,"_s));
    EXPECT_TRUE(spinUntil([&] { return window.evaluate(u"editor.firstChild.naturalWidth"_s) == 3; }));
}

TEST_F(EditorInputTest, PastesWithoutTheStyleOverWhichTheEngineHangs) {
    auto *data = new QMimeData;
    data->setHtml(u"<style>@font-face{font-family:f;src:url(http://x.test/a.woff)}</style>"
                  "<p style='font-family:f'>pasted <b>bold</b></p>"_s);
    QGuiApplication::clipboard()->setMimeData(data);
    window.editor->paste();
    EXPECT_TRUE(spinUntil([&] { return window.content().contains(u"<b>bold</b>"_s); }));
    EXPECT_FALSE(window.content().contains(u"font-face"_s));
}

TEST_F(EditorInputTest, TakesBackAndDoesAgain) {
    window.type(u"one"_s);
    window.press(Qt::Key_B, Qt::ControlModifier);
    window.type(u"two"_s);
    ASSERT_TRUE(spinUntil([&] { return window.content() == u"one<b>two</b>"_s; })) << qPrintable(window.content());
    window.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(spinUntil([&] { return !window.content().contains(u"two"_s); }));
    window.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(spinUntil([&] { return window.content() == u"one<b>two</b>"_s; })) << qPrintable(window.content());
    EXPECT_TRUE(window.waitForReport(u"one<b>two</b>"_s));
}

TEST_F(EditorInputTest, TakesWhatAnInputMethodComposes) {
    ASSERT_TRUE(spinUntil([&] { return window.input()->testAttribute(Qt::WA_InputMethodEnabled); }));
    inputMethod(u"に"_s, {});
    EXPECT_TRUE(spinUntil([&] { return window.content() == u"に"_s; }));
    inputMethod({}, u"日本"_s);
    EXPECT_TRUE(window.waitForReport(u"日本"_s)) << qPrintable(window.content());
}

TEST_F(EditorInputTest, LaysHebrewOutFromTheRightAlsoAtTheReceiver) {
    window.type(u"Hello\r"_s);
    window.type(u"שלום"_s);
    EXPECT_TRUE(window.waitForReport(u"Hello<div dir=\"auto\">שלום</div>"_s)) << qPrintable(window.content());
    EXPECT_EQ(window.evaluate(u"getComputedStyle(editor.lastChild).direction"_s), u"rtl"_s);
}

TEST_F(EditorInputTest, LaysALoneHebrewLineOutFromTheRight) {
    window.type(u"שלום"_s);
    EXPECT_TRUE(window.waitForReport(u"<div dir=\"auto\">שלום</div>"_s)) << qPrintable(window.content());
}

TEST_F(EditorInputTest, GivesMarkedTextTheSizeAndLaterTypedTextToo) {
    window.fill(u"<p>small <font size=\"7\">seven</font></p>"_s);
    window.evaluate(
        u"selection().setBaseAndExtent(editor.firstChild.firstChild, 0, editor.firstChild.firstChild, 5);0"_s);
    window.ref->run(u"setFontSize('18px');"_s);
    EXPECT_TRUE(window.waitForReport(
        u"<p><font style=\"font-size: 18px;\">small</font> <font style=\"font-size: 18px;\">seven</font></p>"_s))
        << qPrintable(window.content());
    window.evaluate(u"editor.innerHTML='';editor.focus();setFontSize('24px');0"_s);
    window.type(u"x"_s);
    EXPECT_TRUE(window.waitForReport(u"<font style=\"font-size: 24px;\">x</font>"_s)) << qPrintable(window.content());
}

TEST_F(EditorInputTest, LeavesByTabInBothDirections) {
    auto *after = new QLineEdit(&window);
    after->show();
    QWidget::setTabOrder(window.editor, after);
    window.type(u"x"_s);
    window.press(Qt::Key_Tab);
    EXPECT_TRUE(spinUntil([&] { return after->hasFocus(); }));
    QTest::keyClick(after, Qt::Key_Backtab);
    EXPECT_TRUE(spinUntil([&] { return window.evaluate(u"document.hasFocus()"_s).toBool(); }));
    window.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(spinUntil([&] { return window.toolbar->isAncestorOf(window.focusWidget()); }));
    EXPECT_EQ(window.content(), u"x"_s);
}

TEST_F(EditorInputTest, LoadsThePageAgainWithItsTextWhenItsProcessDies) {
    TrackingServer server;
    window.fill(u"<p>kept</p>"_s);
    window.ref->insertRemoteImage(server.url(u"died.image.test"_s, u"/a.png"_s));
    ASSERT_TRUE(spinUntil([&] { return server.paths.size() == 1; }));
    const auto content = window.content();
    std::optional<std::optional<QString>> fetched;
    killRenderer();
    window.editor->fetchContent([&](const auto &html) { fetched = html; });
    EXPECT_TRUE(spinUntil([&] { return fetched.has_value(); }));
    EXPECT_TRUE(spinUntil([&] { return server.paths.size() == 2; }));
    EXPECT_EQ(window.fetched(), content);
    window.type(u"x"_s);
    EXPECT_TRUE(spinUntil([&] { return window.content().contains(u'x'); }));
}
