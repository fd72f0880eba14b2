#include "compose/EditorScript.h"
#include "screens/Widgets.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Sheet.h"
#include "web/EditorWindow.h"
#include "web/TrackingServer.h"

#include <QDesktopServices>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorToolbar : public testing::Test {
protected:
    /// Shows this in the editor, all of it selected.
    void select(const QString &html) {
        window.evaluate(EditorScript::setContent(html) + u"selection().selectAllChildren(editor); 0"_s);
    }
    IconButton *button(const QString &name) const { return visibleNamed<IconButton>(*window.toolbar, name); }
    static void choose(QMenu *menu, const QString &entry) {
        ASSERT_TRUE(menu->isVisible());
        for (auto *action : menu->actions())
            if (action->text() == entry)
                return QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
        menu->close();
        FAIL() << qPrintable(entry);
    }
    /// Presses the button and, if it has a menu, the entry in that.
    void press(const QString &name, const QString &entry = {}) {
        if (auto *menu = button(name)->menu())
            QMetaObject::invokeMethod(
                menu, [=] { choose(menu, entry); }, Qt::QueuedConnection);
        QTest::mouseClick(button(name), Qt::LeftButton);
    }
    Sheet *sheet() const {
        const auto sheets = window.findChildren<Sheet *>();
        return sheets.isEmpty() ? nullptr : sheets.last();
    }
    bool hasKeyboard() { return window.evaluate(u"document.hasFocus()"_s).toBool(); }
    /// Writes an address into the sheet that is open and leaves that by one of its buttons.
    void answerSheet(const QString &address, const QString &answer) {
        ASSERT_TRUE(spinUntil([this] { return sheet() && sheet()->isActiveWindow(); }));
        auto *field = sheet()->findChild<QLineEdit *>();
        EXPECT_TRUE(field->hasFocus());
        EXPECT_EQ(field->text(), QString());
        QTest::keyClicks(field, address);
        QTest::mouseClick(visibleNamed<QPushButton>(*sheet(), answer), Qt::LeftButton);
        EXPECT_TRUE(spinUntil([this] { return !sheet(); }));
        // No window manager does it here.
        window.activateWindow();
        EXPECT_TRUE(spinUntil([this] { return hasKeyboard(); }));
    }

    QStringList checkedButtons() const {
        QStringList names;
        for (const auto *each : window.toolbar->findChildren<IconButton *>())
            if (each->isChecked())
                names.append(each->accessibleName());
        return names;
    }
    void pressKey(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }

    EditorWindow window;
};

struct ButtonRow {
    QString button, entry, given, held;
};

QString list(const QString &tag, const QString &text) {
    return u"<%1><li>%2</li></%1>"_s.arg(tag, text);
}

const ButtonRow buttonRows[] = {
    {u"Font Size"_s, u"Small"_s, u"<p>a</p>"_s, u"<p><font style=\"font-size: 12px;\">a</font></p>"_s},
    {u"Font Size"_s, u"Huge"_s, u"<p>a</p>"_s, u"<p><font style=\"font-size: 24px;\">a</font></p>"_s},
    {u"Bold"_s, {}, u"<p>a</p>"_s, u"<p><b>a</b></p>"_s},
    {u"Bold"_s, {}, u"<p><b>a</b></p>"_s, u"<p>a</p>"_s},
    {u"Italic"_s, {}, u"<p>a</p>"_s, u"<p><i>a</i></p>"_s},
    {u"Underline"_s, {}, u"<p>a</p>"_s, u"<p><u>a</u></p>"_s},
    {u"Strikethrough"_s, {}, u"<p>a</p>"_s, u"<p><strike>a</strike></p>"_s},
    {u"Text Color"_s, u"Dark Gray"_s, u"<p>a</p>"_s, u"<p><font color=\"#4b5563\">a</font></p>"_s},
    {u"Text Color"_s, u"Pink"_s, u"<p>a</p>"_s, u"<p><font color=\"#ec4899\">a</font></p>"_s},
    {u"Highlight"_s, u"Pink"_s, u"<p>a</p>"_s,
     u"<p><span style=\"background-color: rgb(251, 207, 232);\">a</span></p>"_s},
    {u"Highlight"_s, u"None"_s, u"<p><span style=\"background-color: red;\">a</span></p>"_s, u"<p>a</p>"_s},
    {u"Align Left"_s, {}, u"<p style=\"text-align: right;\">a</p>"_s, u"<p style=\"text-align: left;\">a</p>"_s},
    {u"Align Center"_s, {}, u"<p>a</p>"_s, u"<p style=\"text-align: center;\">a</p>"_s},
    {u"Align Right"_s, {}, u"<p>a</p>"_s, u"<p style=\"text-align: right;\">a</p>"_s},
    {u"Bullets"_s, {}, u"a"_s, list(u"ul"_s, u"a"_s)},
    {u"Bullets"_s, {}, list(u"ul"_s, u"a"_s), u"a<br>"_s},
    {u"Numbers"_s, {}, u"a"_s, list(u"ol"_s, u"a"_s)},
    {u"Indent"_s,
     {},
     u"<p>a</p>"_s,
     u"<blockquote style=\"margin: 0 0 0 40px; border: none; padding: 0px;\"><p>a</p></blockquote>"_s},
    {u"Outdent"_s, {}, u"<blockquote>a</blockquote>"_s, u"a"_s},
    {u"Horizontal Rule"_s, {}, u"a"_s, u"<hr>"_s},
    {u"Clear Format"_s, {}, u"<p><b><font color=\"#ef4444\">a</font></b></p>"_s, u"<p>a</p>"_s},
};

struct AddressRow {
    const char *name;
    QString given, address, answer, held;
};

const AddressRow linkRows[] = {
    {"Words", u"<p>a</p>"_s, u"https://x.test/it's?a=\\&b"_s, u"Insert"_s,
     u"<p><a href=\"https://x.test/it's?a=\\&amp;b\">a</a></p>"_s},
    {"AsTyped", u"<p>a</p>"_s, u" x.test/a b "_s, u"Insert"_s, u"<p><a href=\" x.test/a b \">a</a></p>"_s},
    {"OtherAddress", u"<p><a href=\"https://x.test/\">a</a></p>"_s, u"https://y.test/"_s, u"Insert"_s,
     u"<p><a href=\"https://y.test/\">a</a></p>"_s},
    {"NoWords", u""_s, u"https://x.test/"_s, u"Insert"_s, u"<a href=\"https://x.test/\">https://x.test/</a>"_s},
    {"NoAddress", u"<p>a</p>"_s, u""_s, u"Insert"_s, u"<p>a</p>"_s},
    {"Cancelled", u"<p>a</p>"_s, u"https://x.test/"_s, u"Cancel"_s, u"<p>a</p>"_s},
};

struct ToggleRow {
    QString held;
    QStringList checked;
};

const ToggleRow toggleRows[] = {
    {u"<ul><li><b>bold</b></li></ul>"_s, {u"Bold"_s, u"Align Left"_s, u"Bullets"_s}},
    {u"<p align=center><i><u>a</u></i></p>"_s, {u"Italic"_s, u"Underline"_s, u"Align Center"_s}},
    {u"<ol><li style='text-align:right'><s>a</s></li></ol>"_s, {u"Strikethrough"_s, u"Align Right"_s, u"Numbers"_s}},
    {u"<p>plain</p>"_s, {u"Align Left"_s}},
};

/// Takes the links that the program wants to be opened outside.
class WebBrowser : public QObject {
    Q_OBJECT
public:
    explicit WebBrowser(const QStringList &schemes)
        : m_schemes(schemes) {
        for (const auto &scheme : schemes)
            QDesktopServices::setUrlHandler(scheme, this, "open");
    }
    ~WebBrowser() override {
        for (const auto &scheme : m_schemes)
            QDesktopServices::unsetUrlHandler(scheme);
    }

    QStringList opened;

public Q_SLOTS:
    void open(const QUrl &link) { opened.append(link.toString()); }

private:
    QStringList m_schemes;
};

} // namespace

TEST_F(EditorToolbar, ButtonsChangeTheSelectedText) {
    for (const auto &row : buttonRows) {
        select(row.given);
        press(row.button, row.entry);
        EXPECT_TRUE(window.waitForReport(row.held))
            << qPrintable(row.button) << ' ' << qPrintable(row.entry) << ": " << qPrintable(window.content());
        EXPECT_TRUE(hasKeyboard());
    }
}

TEST_F(EditorToolbar, LinksGetTheAddressThatIsTyped) {
    for (const auto &row : linkRows) {
        select(row.given);
        press(u"Insert Link"_s);
        answerSheet(row.address, row.answer);
        EXPECT_EQ(window.fetched(), row.held) << row.name;
    }
}

TEST_F(EditorToolbar, TextBehindANewLinkIsNoPartOfIt) {
    window.press(Qt::Key_K, Qt::ControlModifier);
    answerSheet(u"https://x.test/"_s, u"Insert"_s);
    window.type(u" a"_s);
    EXPECT_TRUE(window.waitForReport(u"<a href=\"https://x.test/\">https://x.test/</a>&nbsp;a"_s))
        << qPrintable(window.content());
}

TEST_F(EditorToolbar, ImagesComeFromAnAddress) {
    TrackingServer server;
    const auto address = server.url(u"toolbar.image.test"_s, u"/a.png"_s);
    for (const auto &image : {u"data:image/gif;base64,R0lGODlhAQABAAAAACw="_s, address}) {
        select({});
        press(u"Insert Image"_s, u"From URL"_s);
        answerSheet(image, u"Insert"_s);
        EXPECT_TRUE(window.waitForReport(u"<img src=\"%1\">"_s.arg(image))) << qPrintable(window.content());
    }
    EXPECT_TRUE(spinUntil([&] { return server.wasAskedFor(u"/a.png"_s); }));
    press(u"Insert Image"_s, u"From URL"_s);
    answerSheet(address, u"Cancel"_s);
    press(u"Insert Image"_s, u"From URL"_s);
    answerSheet({}, u"Insert"_s);
    EXPECT_EQ(window.content().count(u"<img"_s), 1);
}

TEST_F(EditorToolbar, ImagesComeFromFilesInTheirOrder) {
    const QTemporaryDir folder;
    QStringList paths;
    for (const auto *name : {"it's.jpg", "b.svg", "c.txt", "d"}) {
        QFile file(folder.filePath(QLatin1String(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(name, 1);
        paths.append(file.fileName());
    }
    paths.insert(1, folder.filePath(u"missing.png"_s));
    paths.insert(2, folder.path());
    press(u"Insert Image"_s, u"From File"_s);
    auto *panel = window.findChild<QFileDialog *>();
    ASSERT_NE(panel, nullptr);
    Q_EMIT panel->filesSelected(paths);
    panel->close();
    EXPECT_TRUE(window.waitForReport(u"<img src=\"data:image/jpeg;base64,aQ==\">"
                                     "<img src=\"data:image/svg+xml;base64,Yg==\">"
                                     "<img src=\"data:image/png;base64,Yw==\">"
                                     "<img src=\"data:image/png;base64,ZA==\">"_s))
        << qPrintable(window.content());
}

TEST_F(EditorToolbar, TogglesFollowTheCaret) {
    for (const auto &row : toggleRows) {
        window.fill(row.held);
        window.evaluate(u"selection().selectAllChildren(editor); selection().collapseToEnd(); 0"_s);
        EXPECT_TRUE(spinUntil([&] { return checkedButtons() == row.checked; }))
            << qPrintable(row.held) << ": " << qPrintable(checkedButtons().join(u", "_s));
    }
    press(u"Italic"_s);
    window.type(u"x"_s);
    EXPECT_TRUE(spinUntil([this] { return button(u"Italic"_s)->isChecked(); }));
    EXPECT_EQ(window.fetched(), u"<p>plain<i>x</i></p>"_s);
}

TEST_F(EditorToolbar, IsUsedFromTheKeyboard) {
    select(u"<p>a</p>"_s);
    window.press(Qt::Key_F10, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), button(u"Font Size"_s));
    pressKey(Qt::Key_Left);
    pressKey(Qt::Key_Right);
    pressKey(Qt::Key_Return);
    EXPECT_TRUE(window.waitForReport(u"<p><b>a</b></p>"_s));
    EXPECT_TRUE(spinUntil([this] { return hasKeyboard(); }));
    window.press(Qt::Key_F10, Qt::AltModifier);
    EXPECT_EQ(QApplication::focusWidget(), button(u"Bold"_s));
    pressKey(Qt::Key_End);
    pressKey(Qt::Key_Right);
    pressKey(Qt::Key_Space);
    EXPECT_TRUE(window.waitForReport(u"<p>a</p>"_s));
}

TEST_F(EditorToolbar, PressedLinksOpenOnTheWebAndNowhereElse) {
    WebBrowser browser(
        {u"http"_s, u"https"_s, u"mailto"_s, u"file"_s, u"javascript"_s, u"data"_s, u"ftp"_s, u"about"_s});
    const auto press = [this](const QString &address, Qt::KeyboardModifiers modifiers) {
        window.evaluate(
            EditorScript::setContent(u"<a href='%1' style='display:block;height:500px'>x</a>"_s.arg(address)));
        window.click({300, 200}, modifiers);
        EXPECT_TRUE(window.fetched().has_value());
    };
    for (const auto *address : {"mailto:ada@x.test", "file:///etc/passwd", "javascript:alert(1)", "data:text/html,x",
                                "ftp://x.test/", "relative", "#part", "HTTPS://x.test/a b"})
        press(QLatin1String(address), Qt::ControlModifier);
    press(u"https://x.test/unheld"_s, Qt::NoModifier);
    press(u"http://x.test/"_s, Qt::ControlModifier);
    EXPECT_TRUE(spinUntil([&] { return browser.opened.contains(u"http://x.test/"_s); }));
    EXPECT_EQ(browser.opened, (QStringList{u"https://x.test/a b"_s, u"http://x.test/"_s}));
}

#include "EditorToolbarTests.moc"
