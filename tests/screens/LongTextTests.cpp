#include "screens/MessageScreenFixture.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Some 200 KB: paragraphs of differing lengths, as in a log.
QByteArray longText() {
    QByteArray lines;
    for (int day = 1; lines.size() < 200'000; ++day)
        lines += "Day " + QByteArray::number(day) + ": " + QByteArray("wind and water, ").repeated(day % 30) + "\\n\\n";
    return lines + "The end";
}

class LongText : public MessageScreen {
protected:
    void SetUp() override {
        MessageScreen::SetUp();
        openLong(7);
    }

    void openLong(int uid) {
        open(R"(, "body_text": ")" + longText() + "\"", uid);
        measure();
    }
    /// Lets all of the text be measured and the column follow.
    void measure() {
        for (int height = -1; height != text().height();) {
            height = text().height();
            clock.advance(1ms);
            deliverQueuedEvents();
        }
    }
    QScrollArea &column() const { return *view->findChild<QScrollArea *>(); }
    void expectEndIsReached() {
        const auto *place = text().parentWidget();
        EXPECT_EQ(text().y(), 0);
        EXPECT_EQ(place->height(), text().height());
        auto *bar = column().verticalScrollBar();
        bar->setValue(bar->maximum());
        const auto last = text().characterRect(text().text().size() - 1);
        EXPECT_TRUE(text().visibleRegion().contains(last)) << "last line is cut off";
        EXPECT_NEAR(last.bottom(), text().height() - 20, 4);
    }
};

} // namespace

TEST_F(LongText, IsShownToItsLastLine) {
    expectEndIsReached();
}

TEST_F(LongText, IsShownToItsLastLineInANarrowerWindow) {
    const auto wide = text().height();
    view->resize(380, 500);
    deliverQueuedEvents();
    measure();
    EXPECT_GT(text().height(), wide);
    expectEndIsReached();
    view->resize(700, 500);
    deliverQueuedEvents();
    measure();
    EXPECT_EQ(text().height(), wide);
    expectEndIsReached();
}

TEST_F(LongText, IsShownToItsLastLineAfterAnotherMessage) {
    open(R"(, "body_text": "short")", 8);
    measure();
    EXPECT_LT(text().height(), 100);
    EXPECT_EQ(text().parentWidget()->height(), text().height());
    openLong(9);
    expectEndIsReached();
}

TEST_F(LongText, IsZoomedWithTheKeyboard) {
    const auto natural = text().height();
    const auto press = [this](Qt::Key key) {
        QTest::keyClick(&text(), key, Qt::ControlModifier);
        measure();
        return text().height();
    };
    EXPECT_GT(press(Qt::Key_Plus), natural);
    expectEndIsReached();
    press(Qt::Key_Minus);
    EXPECT_LT(press(Qt::Key_Minus), natural);
    expectEndIsReached();
    EXPECT_EQ(press(Qt::Key_0), natural);
    expectEndIsReached();
}
