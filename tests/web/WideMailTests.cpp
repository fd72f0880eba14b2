#include "web/MailColumn.h"

#include <QScrollBar>
#include <gtest/gtest.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

const QColor red(255, 0, 0), green(0, 255, 0), blue(0, 0, 255);
/// What the page leaves free on each side of a message, in CSS pixels.
constexpr int margin = 16;
constexpr int bodyWidth = 560;

/// A table in red, whose last column is green and whose last line, 40 pixels high, is blue.
QString table(int width) {
    return u"<table width=%1 cellspacing=0 cellpadding=0 style='min-width:%1px;table-layout:fixed'>"
           "<tr height=400><td bgcolor=#ff0000><td width=40 bgcolor=#00ff00>"
           "<tr height=40><td colspan=2 bgcolor=#0000ff></table>"_s.arg(width);
}

class WideMailTest : public testing::Test {
protected:
    WideMailTest() { column.setBodyWidth(bodyWidth); }

    /// Whether this point of the body, scrolled into the window, has this colour.
    bool shows(const QColor &color, int x, int y) {
        column.ensureVisible(x, column.header->height() + y);
        return column.waitForColor(column.body->mapTo(&column, QPoint(x, y)), color);
    }

    MailColumn column;
};

} // namespace

TEST_F(WideMailTest, TableThatIsSomewhatTooWideIsScaledDown) {
    column.show(table(700));
    const auto scale = double(bodyWidth) / (700 + margin);
    const int height = int(std::ceil((440 + 2 * margin) * scale));
    EXPECT_TRUE(spinUntil([&] { return std::abs(column.body->height() - height) <= 2; })) << column.body->height();
    EXPECT_NEAR(column.body->contentHeight(), 440 + 2 * margin, 1);
    EXPECT_TRUE(shows(red, int((margin + 10) * scale), 100));
    EXPECT_TRUE(shows(green, int((margin + 690) * scale), 100)) << "last column";
    EXPECT_TRUE(shows(blue, int((margin + 690) * scale), int((margin + 435) * scale))) << "last line";
}

TEST_F(WideMailTest, GetsItsNaturalSizeBackWithTheRoomForIt) {
    column.show(table(700));
    const auto natural = 440 + 2 * margin;
    ASSERT_TRUE(spinUntil([&] { return column.body->height() < natural - 50; })) << column.body->height();
    column.setBodyWidth(780);
    EXPECT_TRUE(spinUntil([&] { return std::abs(column.body->height() - natural) <= 1; })) << column.body->height();
    EXPECT_TRUE(shows(green, margin + 690, 100));
    EXPECT_TRUE(shows(blue, margin + 690, margin + 435));
}

TEST_F(WideMailTest, MuchTooWideTableScrollsSideways) {
    column.show(table(2000));
    ASSERT_TRUE(shows(red, bodyWidth - 10, 100)) << "left end";
    column.turnWheel(-1000, Qt::ShiftModifier);
    EXPECT_TRUE(shows(green, bodyWidth - 15, 100)) << "right end";
    EXPECT_EQ(column.verticalScrollBar()->value(), 0);
    for (int press = 0; press < 100; ++press)
        column.press(Qt::Key_Left);
    EXPECT_TRUE(shows(red, bodyWidth - 10, 100)) << "left end again";
    for (int press = 0; press < 100; ++press)
        column.press(Qt::Key_Right);
    EXPECT_TRUE(shows(green, bodyWidth - 15, 100)) << "right end again";
}

struct FitRow {
    const char *name;
    const char *html;
    double scale;
};

class WideMail : public WideMailTest, public testing::WithParamInterface<FitRow> {};

#define BLOCK(WIDTH) "<div style='width:" WIDTH ";height:400px;background:#ff0000'></div>"

// The height tells the scale.
TEST_P(WideMail, IsScaledByWhatHelps) {
    column.show(QString::fromLatin1(GetParam().html));
    const int height = int(std::ceil((400 + 2 * margin) * GetParam().scale));
    EXPECT_TRUE(spinUntil([&] { return std::abs(column.body->height() - height) <= 2; })) << column.body->height();
}

INSTANTIATE_TEST_SUITE_P(
    , WideMail,
    testing::Values(FitRow{"Narrow", BLOCK("300px"), 1},
                    FitRow{"Wide", BLOCK("700px"), double(bodyWidth) / (700 + margin)},
                    FitRow{"FarTooWide", BLOCK("3000px"), 0.5},
                    FitRow{"SticksOutAtAnyWidth", BLOCK("calc(100% + 60px)"), 1},
                    FitRow{"GrowsWithTheView", BLOCK("130%"), 1},
                    FitRow{"WideAndSticksOut", "<div style='min-width:700px'>" BLOCK("calc(100% + 30px)") "</div>",
                           double(bodyWidth) / (730 + margin)},
                    FitRow{"SomewhatTooWide", BLOCK("550px"), double(bodyWidth) / (550 + margin)},
                    FitRow{"ForbidsScaling", "<style>html { zoom: 1 !important }</style>" BLOCK("700px"),
                           double(bodyWidth) / (700 + margin)}),
    [](const auto &row) { return std::string(row.param.name); });
