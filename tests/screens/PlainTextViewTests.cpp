#include "mail/screens/PlainTextView.h"

#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/Themes.h"

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int padding = 20;

class PlainText : public ScreenTest {
protected:
    PlainText() {
        area.setWidgetResizable(true);
        area.setWidget(view);
        area.resize(600, 400);
        view->setTheme(resolvedTheme(u"light", ColorScheme::light));
        showActive(area);
    }

    /// Lets all of the text be measured.
    void measure() {
        for (int height = -1; height != view->height();) {
            height = view->height();
            clock.advance(1ms);
        }
    }
    int lineHeight() const { return QFontMetrics(view->font()).lineSpacing(); }
    QPoint inLine(int line, int x) const { return {padding + x, padding + line * lineHeight() + lineHeight() / 2}; }
    int widthOf(const QString &text) const { return QFontMetrics(view->font()).horizontalAdvance(text); }
    void drag(const QPoint &from, const QPoint &to) {
        send(QEvent::MouseButtonPress, from, Qt::LeftButton);
        send(QEvent::MouseMove, to, Qt::NoButton);
        send(QEvent::MouseButtonRelease, to, Qt::LeftButton);
    }
    void send(QEvent::Type type, const QPoint &place, Qt::MouseButton button) {
        const auto held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, view->mapToGlobal(place), button, held, {});
        QCoreApplication::sendEvent(view, &event);
    }

    ManualClock clock;
    QScrollArea area;
    PlainTextView *view = new PlainTextView;
};

/// A clock on which a millisecond passes whenever somebody looks at it, and that never calls anybody.
class TickingClock final : public Clock {
public:
    TickingClock() { install(this); }
    ~TickingClock() override { install(nullptr); }

    QDateTime now() const override { return {}; }
    Duration uptime() const override { return Duration(++ticks); }

    mutable int ticks = 0;

protected:
    ScheduledWorkPtr schedule(Duration, bool, Duration, std::function<void()>) override { return nullptr; }
};

struct SelectionRow {
    const char *name;
    QString text;
    int fromLine;
    QString before;
    int toLine;
    QString upTo;
    QString selected;
};

class Selections : public PlainText, public testing::WithParamInterface<SelectionRow> {};

const SelectionRow selections[] = {
    {"InALine", u"one two three"_s, 0, u"one "_s, 0, u"one two"_s, u"two"_s},
    {"Backwards", u"one two three"_s, 0, u"one two"_s, 0, u"one "_s, u"two"_s},
    {"OverLines", u"one two\r\n\r\nthree"_s, 0, u"one "_s, 2, u"th"_s, u"two\n\nth"_s},
    {"BelowTheText", u"one\ntwo"_s, 0, u"o"_s, 9, u"two"_s, u"ne\ntwo"_s},
};

} // namespace

TEST_P(Selections, FollowTheMouse) {
    view->setText(GetParam().text);
    drag(inLine(GetParam().fromLine, widthOf(GetParam().before)), inLine(GetParam().toLine, widthOf(GetParam().upTo)));
    EXPECT_EQ(view->selectedText(), GetParam().selected);
}

INSTANTIATE_TEST_SUITE_P(, Selections, testing::ValuesIn(selections), rowName);

TEST_F(PlainText, IsCopiedWithTheKeyboard) {
    const auto text = u"ä 👩‍👧 שלום\n\nend"_s;
    view->setText(text);
    view->setFocus();
    QGuiApplication::clipboard()->setText(u"before"_s);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"before"_s);
    QTest::keyClick(view, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    view->setText(u"next"_s);
    EXPECT_EQ(view->selectedText(), QString());
}

TEST_F(PlainText, SelectsAWordByADoubleClick) {
    view->setText(u"first line\none two-three"_s);
    QTest::mouseDClick(view, Qt::LeftButton, {}, inLine(1, widthOf(u"one t"_s)));
    EXPECT_EQ(view->selectedText(), u"two"_s);
    view->setText(QString());
    QTest::mouseDClick(view, Qt::LeftButton, {}, inLine(0, 0));
    EXPECT_EQ(view->selectedText(), QString());
}

TEST_F(PlainText, StartsARightToLeftLineOnTheRight) {
    view->setText(u"שלום עולם"_s);
    const auto right = view->width() - 2 * padding;
    drag(inLine(0, right - 1), inLine(0, right - widthOf(u"שלום"_s)));
    EXPECT_EQ(view->selectedText(), u"שלום"_s);
}

TEST_F(PlainText, IsAsTallAsItsLines) {
    view->setText(u"one\n\nthree\n"_s);
    measure();
    EXPECT_NEAR(view->height(), 3 * lineHeight() + 2 * padding, 3);
    view->setText(QString());
    EXPECT_EQ(view->height(), 2 * padding);
    const auto word = u"wordword "_s;
    view->setText(word.repeated(200));
    measure();
    const int perLine = (view->width() - 2 * padding) / widthOf(word);
    const int lines = (200 + perLine - 1) / perLine;
    EXPECT_NEAR(view->height(), lines * lineHeight() + 2 * padding, lineHeight() + lines);
    area.resize(300, 400);
    deliverQueuedEvents();
    measure();
    EXPECT_GT(view->height(), 3 * lines / 2 * lineHeight());
}

TEST_F(PlainText, ShowsALineOfAMegabyte) {
    const QString text(1'000'000, u'x');
    view->setText(text);
    const int estimated = view->height();
    measure();
    EXPECT_GT(estimated, 1'000'000 / view->width() * lineHeight());
    EXPECT_FALSE(area.grab().isNull());
    view->selectAll();
    EXPECT_EQ(view->selectedText().size(), text.size());
}

TEST_F(PlainText, NeverCutsACharacterInTwo) {
    const auto face = u"😀"_s;
    view->setText(u"x"_s + face.repeated(6000));
    measure();
    for (int line = 0; line < 400; ++line) {
        drag(inLine(line, 0), inLine(line, 10'000));
        const auto selected = view->selectedText();
        ASSERT_FALSE(!selected.isEmpty() && (selected.front().isLowSurrogate() || selected.back().isHighSurrogate()))
            << "line " << line;
    }
}

TEST_F(PlainText, OpensAHundredThousandLinesWithoutLayingThemAllOut) {
    TickingClock ticking;
    view->setText(u"line\n"_s.repeated(100'000));
    EXPECT_LT(ticking.ticks, 100);
    EXPECT_NEAR(view->height(), 100'000 * lineHeight(), 100'000 * 2);
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    EXPECT_FALSE(area.grab().isNull());
    EXPECT_LT(ticking.ticks, 1000);
}

TEST_F(PlainText, BearsMoreLinesThanAWidgetIsTall) {
    view->setText(u"\n"_s.repeated(2'000'000));
    EXPECT_LE(view->height(), QWIDGETSIZE_MAX);
}

TEST_F(PlainText, ScrollsWithTheKeyboard) {
    view->setText(u"line\n"_s.repeated(1000));
    view->setFocus();
    auto *bar = area.verticalScrollBar();
    QTest::keyClick(view, Qt::Key_PageDown);
    EXPECT_EQ(bar->value(), bar->pageStep());
    QTest::keyClick(view, Qt::Key_End);
    EXPECT_EQ(bar->value(), bar->maximum());
    QTest::keyClick(view, Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(PlainText, IsReadPieceByPieceByAssistiveTechnology) {
    view->setText(u"one\r\n\r\n"_s + u"two three\n"_s.repeated(300));
    measure();
    auto *accessible = QAccessible::queryAccessibleInterface(view);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Message text"_s);
    EXPECT_EQ(accessible->text(QAccessible::Value), view->text());
    EXPECT_TRUE(accessible->state().readOnly);
    EXPECT_TRUE(accessible->state().focusable);
    auto *words = accessible->textInterface();
    ASSERT_TRUE(words);
    EXPECT_EQ(words->characterCount(), 5 + 300 * 10);
    EXPECT_EQ(words->text(5, 8), u"two"_s);
    int start = 0, end = 0;
    EXPECT_EQ(words->textAtOffset(10, QAccessible::WordBoundary, &start, &end), u"three"_s);
    EXPECT_EQ(words->offsetAtPoint(words->characterRect(10).center() - QPoint(1, 0)), 10);
    words->setSelection(0, 5, 8);
    EXPECT_EQ(view->selectedText(), u"two"_s);
    words->selection(0, &start, &end);
    EXPECT_EQ(std::pair(start, end), std::pair(5, 8));
    words->removeSelection(0);
    EXPECT_EQ(words->selectionCount(), 0);
    words->scrollToSubstring(words->characterCount() - 6, words->characterCount() - 1);
    EXPECT_TRUE(view->visibleRegion().contains(view->characterRect(words->characterCount() - 6)));
}
