#include "mail/EmailHTMLFit.h"

#include <gtest/gtest.h>

namespace {

/// A page that is never narrower than `least` and sticks out of any view by `excess`.
struct Page {
    qreal least = 0, excess = 0, factor = 1;

    qreal widthIn(qreal visible) const { return std::max(least, visible * factor + excess); }
};

/// Lets page and view agree; the scale that comes of it.
qreal settledScale(EmailHTMLFit &fit, const Page &page, qreal width) {
    fit.setWidth(width);
    for (int step = 0; step < 10; ++step) {
        const auto visible = width / fit.scale();
        if (!fit.receive(page.widthIn(visible), visible))
            return fit.scale();
    }
    ADD_FAILURE() << "the scale never settles";
    return 0;
}

struct FitRow {
    const char *name;
    Page page;
    qreal width, scale;
};

class Fits : public testing::TestWithParam<FitRow> {};

const FitRow fits[] = {
    {"NarrowPage", {300}, 600, 1},
    {"WidePage", {750}, 600, 0.8},
    {"TwiceAsWide", {1200}, 600, 0.5},
    {"FarTooWide", {3000}, 600, 0.5},
    {"SticksOutAtAnyWidth", {0, 40}, 600, 1},
    {"GrowsWithTheView", {0, 0, 1.2}, 600, 1},
    {"WideAndSticksOut", {750, 40}, 600, 0.8},
    {"EmptyMarginSticksOut", {610}, 600, 1},
};

} // namespace

TEST_P(Fits, AreFoundInAFewSteps) {
    EmailHTMLFit fit;
    EXPECT_DOUBLE_EQ(settledScale(fit, GetParam().page, GetParam().width), GetParam().scale);
}

INSTANTIATE_TEST_SUITE_P(, Fits, testing::ValuesIn(fits), [](const auto &row) { return std::string(row.param.name); });

TEST(EmailHTMLFit, FollowsTheWidthOfTheView) {
    EmailHTMLFit fit;
    const Page page{750};
    EXPECT_DOUBLE_EQ(settledScale(fit, page, 600), 0.8);
    EXPECT_DOUBLE_EQ(settledScale(fit, page, 675), 0.9);
    EXPECT_DOUBLE_EQ(settledScale(fit, page, 900), 1);
    EXPECT_DOUBLE_EQ(settledScale(fit, page, 375), 0.5);
}

TEST(EmailHTMLFit, TriesAgainInAnotherWidth) {
    EmailHTMLFit fit;
    const Page page{400, 40};
    EXPECT_DOUBLE_EQ(settledScale(fit, page, 600), 1);
    EXPECT_LT(settledScale(fit, page, 320), 0.9);
}

TEST(EmailHTMLFit, FitsWhatCameLate) {
    EmailHTMLFit fit;
    EXPECT_DOUBLE_EQ(settledScale(fit, {750}, 600), 0.8);
    EXPECT_DOUBLE_EQ(settledScale(fit, {1000}, 600), 0.6);
    fit.reset();
    EXPECT_DOUBLE_EQ(fit.scale(), 1);
}

TEST(EmailHTMLFit, IgnoresWhatWasMeasuredForAnotherWidth) {
    EmailHTMLFit fit;
    fit.setWidth(600);
    EXPECT_FALSE(fit.receive(750, 700));
    EXPECT_DOUBLE_EQ(fit.scale(), 1);
}
