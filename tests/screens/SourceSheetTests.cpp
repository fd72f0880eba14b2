#include "mail/screens/SourceSheet.h"

#include "mail/screens/PlainTextView.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/Themes.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString source = u"Subject: a\r\nTo: b\r\n\r\nFirst: words\r\n\r\nlast"_s;

class Source : public ScreenTest {
protected:
    void SetUp() override { showActive(*sheet); }
    void TearDown() override {
        delete sheet;
        ScreenTest::TearDown();
    }

    PlainTextView *part(const QString &name) const { return visibleNamed<PlainTextView>(*sheet, name); }
    /// Whether anything in this part is drawn in the colour of names, or nearly: thin strokes are mixed with the
    /// ground.
    static bool hasName(PlainTextView &view) {
        const auto image = view.grab().toImage();
        const auto wanted = accentTextColor(AppStyle::theme());
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (difference(image.pixelColor(x, y), wanted) < 60)
                    return true;
        return false;
    }
    static int difference(const QColor &a, const QColor &b) {
        return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
    }

    ManualClock clock;
    QPointer<SourceSheet> sheet = new SourceSheet(nullptr);
};

} // namespace

TEST_F(Source, SetsTheHeadersApart) {
    sheet->showMessage(false, source);
    ASSERT_TRUE(part(u"Headers"_s));
    ASSERT_TRUE(part(u"Body"_s));
    EXPECT_EQ(part(u"Headers"_s)->text(), u"Subject: a\nTo: b"_s);
    EXPECT_EQ(part(u"Body"_s)->text(), u"First: words\n\nlast"_s);
    EXPECT_TRUE(hasName(*part(u"Headers"_s)));
    EXPECT_FALSE(hasName(*part(u"Body"_s)));
    EXPECT_TRUE(part(u"Headers"_s)->hasFocus());
}

TEST_F(Source, OfHeadersAloneHasNoBody) {
    sheet->showMessage(false, u"Subject: a"_s);
    EXPECT_TRUE(part(u"Headers"_s));
    EXPECT_FALSE(part(u"Body"_s));
}

TEST_F(Source, IsShownAsItIsWhenItIsNoMessage) {
    sheet->showPlain(source);
    ASSERT_TRUE(part(u"Email Source"_s));
    EXPECT_FALSE(part(u"Body"_s));
    EXPECT_FALSE(hasName(*part(u"Email Source"_s)));
}

TEST_F(Source, SaysWhyThereIsNoText) {
    QSignalSpy copies(sheet, &SourceSheet::copyRequested);
    sheet->showMessage(true, std::nullopt);
    EXPECT_TRUE(showsText(*sheet, u"Loading source..."_s));
    sheet->showMessage(false, std::nullopt);
    EXPECT_TRUE(showsText(*sheet, u"No source available"_s));
    visibleNamed<QPushButton>(*sheet, u"Copy"_s)->click();
    EXPECT_EQ(copies.count(), 0);
    sheet->showMessage(false, source);
    EXPECT_FALSE(showsText(*sheet, u"No source available"_s));
    visibleNamed<QPushButton>(*sheet, u"Copy"_s)->click();
    ASSERT_EQ(copies.count(), 1);
    EXPECT_EQ(copies.first().first().toString(), source);
}

TEST_F(Source, ClosesWithEscapeAndTheButton) {
    sheet->showMessage(false, source);
    QTest::keyClick(part(u"Headers"_s), Qt::Key_Escape);
    EXPECT_FALSE(sheet->isVisible());
    sheet->open();
    visibleNamed<QPushButton>(*sheet, u"Close"_s)->click();
    EXPECT_FALSE(sheet->isVisible());
}
