#include "mail/screens/LinkTargetLabel.h"
#include "web/MailColumn.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString block(int height, const QString &color) {
    return u"<div style='height:%1px;background:%2;margin:0 -16px'></div>"_s.arg(height).arg(color);
}

class EmailHTMLViewTest : public testing::Test {
protected:
    QScrollBar *scrollBar() { return column.verticalScrollBar(); }
    bool waitForHeight(qreal height) {
        return spinUntil([&] { return std::abs(column.body->contentHeight() - height) <= 1; });
    }

    MailColumn column;
};

constexpr QPoint middle(400, 300);

} // namespace

TEST_F(EmailHTMLViewTest, ShortBodyIsAHundredPixelsTall) {
    column.show(u"short"_s);
    EXPECT_EQ(column.body->contentHeight(), 100);
    EXPECT_EQ(column.body->height(), 100);
}

TEST_F(EmailHTMLViewTest, BodyIsAsTallAsItsContent) {
    column.show(block(700, u"red"_s));
    EXPECT_TRUE(waitForHeight(732)) << column.body->contentHeight();
    column.show(block(300, u"red"_s));
    EXPECT_TRUE(waitForHeight(332)) << column.body->contentHeight();
}

TEST_F(EmailHTMLViewTest, MailThatMakesItsPageAsTallAsTheWindowIsShownToItsEnd) {
    column.show(u"<style>html, body { height: 100% }</style>"_s + block(2000, u"red"_s));
    EXPECT_TRUE(spinUntil([&] { return column.body->height() >= 2016; })) << column.body->height();
}

TEST_F(EmailHTMLViewTest, MarginsOfTheBodyAreShownToo) {
    column.show(u"<style>body { margin: 40px !important; padding: 0 !important }</style>"_s + block(300, u"red"_s));
    EXPECT_TRUE(spinUntil([&] { return column.body->height() == 380; })) << column.body->height();
}

TEST_F(EmailHTMLViewTest, AMillionPixelsShowEverywhere) {
    const int piece = 50000;
    QString html;
    for (int i = 0; i < 20; ++i)
        html += block(piece, i % 2 == 0 ? u"#ff0000"_s : u"#0000ff"_s);
    column.show(html);
    ASSERT_TRUE(waitForHeight(20 * piece + 32)) << column.body->contentHeight();
    for (int i = 0; i < 20; ++i) {
        const auto color = i % 2 == 0 ? QColor(255, 0, 0) : QColor(0, 0, 255);
        scrollBar()->setValue(116 + i * piece + piece / 2 - middle.y());
        EXPECT_TRUE(column.waitForColor(middle, color)) << "piece " << i;
    }
    scrollBar()->setValue(scrollBar()->maximum());
    EXPECT_TRUE(column.waitForColor({400, 550}, QColor(0, 255, 255))) << "footer";
    EXPECT_TRUE(column.waitForColor({400, 470}, QColor(0, 0, 255))) << "last piece";
}

TEST_F(EmailHTMLViewTest, PagesAboveTwoMegabytesAreShown) {
    const auto padding = u"<!--%1-->"_s.arg(QString(5'000'000, u'x'));
    column.show(padding + block(400, u"#00ff00"_s));
    EXPECT_TRUE(column.waitForColor(middle, QColor(0, 255, 0)));
}

TEST_F(EmailHTMLViewTest, FormerMessageNeverShowsInTheNext) {
    column.show(block(2000, u"#ff0000"_s));
    ASSERT_TRUE(column.waitForColor(middle, QColor(255, 0, 0)));
    const auto before = column.paints;
    column.body->setHtml(block(2000, u"#00ff00"_s));
    bool sawFormer = false;
    EXPECT_TRUE(spinUntil([&] {
        const auto color = column.seen(middle);
        sawFormer = sawFormer || (column.paints > before && color == QColor(255, 0, 0));
        return color == QColor(0, 255, 0);
    }));
    EXPECT_FALSE(sawFormer);
}

TEST_F(EmailHTMLViewTest, MessageIsShownAgainAfterAnotherThatWasNeverLoaded) {
    column.show(block(2000, u"#ff0000"_s));
    ASSERT_TRUE(column.waitForColor(middle, QColor(255, 0, 0)));
    column.body->setHtml(block(2000, u"#00ff00"_s));
    column.body->setHtml(block(2000, u"#ff0000"_s));
    EXPECT_TRUE(column.waitForColor(middle, QColor(255, 0, 0)));
}

TEST_F(EmailHTMLViewTest, FollowsTheThemeWithoutAnyColorOfItsOwn) {
    column.show(block(10, u"red"_s));
    EXPECT_TRUE(column.waitForColor({400, 180}, Qt::white));
    column.body->setTheme(MailColumn::theme(true));
    EXPECT_TRUE(column.waitForColor({400, 180}, QColor(0x1e, 0x29, 0x3b)));
}

TEST_F(EmailHTMLViewTest, WheelOverTheBodyScrollsTheColumn) {
    column.show(block(5000, u"red"_s));
    ASSERT_TRUE(waitForHeight(5032));
    column.turnWheel(-15);
    EXPECT_GT(scrollBar()->value(), 0);
    const auto down = scrollBar()->value();
    column.turnWheel(15);
    EXPECT_LT(scrollBar()->value(), down);
}

TEST_F(EmailHTMLViewTest, KeysInTheBodyScrollTheColumn) {
    column.show(block(5000, u"red"_s));
    ASSERT_TRUE(waitForHeight(5032));
    column.press(Qt::Key_End);
    EXPECT_EQ(scrollBar()->value(), scrollBar()->maximum());
    column.press(Qt::Key_Home);
    EXPECT_EQ(scrollBar()->value(), 0);
    column.press(Qt::Key_Space);
    const auto page = scrollBar()->value();
    EXPECT_GT(page, 0);
    column.press(Qt::Key_Down);
    EXPECT_GT(scrollBar()->value(), page);
    column.press(Qt::Key_Up);
    column.press(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(scrollBar()->value(), 0);
}

TEST_F(EmailHTMLViewTest, ZoomMakesTheBodyTallerAndKeepsItsEndReachable) {
    column.show(block(2000, u"#ff0000"_s) + block(1000, u"#0000ff"_s));
    ASSERT_TRUE(waitForHeight(3032));
    column.turnWheel(15, Qt::ControlModifier);
    EXPECT_TRUE(spinUntil([&] { return column.body->height() > 3300; })) << column.body->height();
    scrollBar()->setValue(scrollBar()->maximum());
    EXPECT_TRUE(column.waitForColor({400, 450}, QColor(0, 0, 255)));
    column.press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_TRUE(spinUntil([&] { return std::abs(column.body->height() - 3032) <= 1; })) << column.body->height();
}

TEST_F(EmailHTMLViewTest, FoundTextIsScrolledTo) {
    column.show(block(9000, u"red"_s) + u"<p>needle</p>"_s + block(9000, u"red"_s));
    column.body->findText(u"needle"_s);
    EXPECT_TRUE(spinUntil([&] { return scrollBar()->value() > 8000 && scrollBar()->value() < 9200; }))
        << scrollBar()->value();
}

TEST_F(EmailHTMLViewTest, SelectAllTakesTheWholeText) {
    column.show(u"<p>first</p>"_s + block(9000, u"red"_s) + u"<p>last</p>"_s);
    column.body->selectAll();
    EXPECT_TRUE(spinUntil([&] {
        const auto text = column.body->selectedText();
        return text.contains(u"first"_s) && text.contains(u"last"_s);
    }));
}

struct LinkRow {
    const char *name;
    const char *attributes;
    const char *url;
};

class EmailLink : public testing::TestWithParam<LinkRow> {};

TEST_P(EmailLink, IsReportedAndNotFollowed) {
    MailColumn column;
    const auto link = u"<a style='display:block;height:300px;background:#00ff00' %1>x</a>"_s;
    column.show(link.arg(QString::fromLatin1(GetParam().attributes)));
    ASSERT_TRUE(column.waitForColor({400, 300}, QColor(0, 255, 0)));
    column.click({400, 150});
    ASSERT_TRUE(spinUntil([&] { return !column.links.isEmpty(); }));
    EXPECT_EQ(column.links, QList<QUrl>{QUrl(QString::fromLatin1(GetParam().url))});
    EXPECT_TRUE(column.waitForColor({400, 300}, QColor(0, 255, 0)));
}

INSTANTIATE_TEST_SUITE_P(
    , EmailLink,
    testing::Values(LinkRow{"Web", "href='http://example.test/a?b=c'", "http://example.test/a?b=c"},
                    LinkRow{"NewWindow", "href='http://example.test/' target=_blank", "http://example.test/"},
                    LinkRow{"Mail", "href='mailto:a@example.test'", "mailto:a@example.test"},
                    LinkRow{"Download", "download href='http://example.test/x'", "http://example.test/x"}),
    [](const auto &row) { return std::string(row.param.name); });

TEST_F(EmailHTMLViewTest, TargetOfTheLinkUnderTheMouseIsShownWithItsEscapes) {
    LinkTargetLabel label(&column);
    QObject::connect(column.body, &EmailHTMLView::linkHovered, &label, &LinkTargetLabel::setTarget);
    column.show(u"<a style='display:block;height:100px' href='http://b\u00fccher.example/\u00e4?q=a b'>x</a>"_s +
                block(300, u"#00ff00"_s));
    ASSERT_TRUE(column.waitForColor({400, 300}, QColor(0, 255, 0)));
    column.hover({200, 60});
    EXPECT_TRUE(spinUntil([&] { return label.isVisible(); }));
    EXPECT_EQ(label.text(), u"http://xn--bcher-kva.example/%C3%A4?q=a%20b"_s);
    column.hover({200, 250});
    EXPECT_TRUE(spinUntil([&] { return !label.isVisible(); }));
}

TEST_F(EmailHTMLViewTest, NothingIsLeftOfAMessageThatWasLetGo) {
    column.show(u"<p>the words</p>"_s);
    ASSERT_TRUE(column.pageText().contains(u"the words"_s));
    column.body->clear();
    EXPECT_TRUE(spinUntil([&] { return column.pageText().isEmpty(); })) << qPrintable(column.pageText());
    column.show(u"<p>the words</p>"_s);
    EXPECT_TRUE(column.pageText().contains(u"the words"_s));
}

TEST_F(EmailHTMLViewTest, DeadPageIsLoadedOnceMoreAndThenShownAsText) {
    column.show(u"<p>the words</p>"_s + block(400, u"#ff0000"_s));
    ASSERT_TRUE(column.waitForColor(middle, QColor(255, 0, 0)));
    const auto before = column.paints;
    killRenderer();
    ASSERT_TRUE(spinUntil([&] { return column.paints > before; }));
    EXPECT_TRUE(column.waitForColor(middle, QColor(255, 0, 0)));

    killRenderer();
    ASSERT_TRUE(spinUntil([&] {
        const auto *text = column.body->findChild<QPlainTextEdit *>();
        return text && text->toPlainText() == u"the words"_s;
    }));
    const auto lines = column.body->findChildren<QLabel *>();
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_TRUE(lines.first()->text().contains(u"plain text"_s));

    column.show(block(400, u"#0000ff"_s));
    EXPECT_TRUE(column.waitForColor(middle, QColor(0, 0, 255)));
}
