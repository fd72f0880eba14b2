#include "support/CoreTest.h"
#include "ui/StarField.h"

namespace {

struct CountCase {
    const char *name;
    double width, height;
    size_t count;
};

class StarCountTest : public testing::TestWithParam<CountCase> {};

TEST_P(StarCountTest, FollowsTheAreaWithinLimits) {
    EXPECT_EQ(starField(GetParam().width, GetParam().height).stars.size(), GetParam().count);
}

INSTANTIATE_TEST_SUITE_P(Sizes, StarCountTest,
                         testing::Values(CountCase{"Nothing", 0, 0, 30}, CountCase{"Lowest", 300, 240, 30},
                                         CountCase{"FirstAboveTheLowest", 300, 248, 31},
                                         CountCase{"PartsAreCutOff", 300, 255.9, 31},
                                         CountCase{"JustBelowTheHighest", 920, 599, 229},
                                         CountCase{"Highest", 920, 600, 230},
                                         CountCase{"VeryLarge", 40000, 30000, 230}),
                         rowName);

void expectStar(const Star &star, const Star &expected) {
    constexpr double tolerance = 1e-6;
    EXPECT_NEAR(star.position.x(), expected.position.x(), tolerance);
    EXPECT_NEAR(star.position.y(), expected.position.y(), tolerance);
    EXPECT_NEAR(star.radius, expected.radius, tolerance);
    EXPECT_NEAR(star.opacity, expected.opacity, tolerance);
    EXPECT_EQ(star.hasCross, expected.hasCross);
}

/// The values were computed by a program of its own in another language.
TEST(StarFieldTest, StarsLieWhereTheyAlwaysLie) {
    const auto stars = starField(1000, 600).stars;
    expectStar(stars[0], {{833.2494087, 246.1707485}, 1.3, 0.72, true});
    expectStar(stars[1], {{709.7428855, 78.13229572}, 0.9595422293, 0.4353078508, false});
    expectStar(stars[16], {{328.938735, 414.2641337}, 0.9998558022, 0.4560311284, false});
    expectStar(stars[17], {{364.8126955, 375.0881209}, 1.3, 0.72, false});
    expectStar(stars[31], {{317.9674983, 390.3227283}, 0.7922590982, 0.4534081025, true});
    expectStar(stars[229], {{394.6593423, 222.1194781}, 0.6266994736, 0.4041611353, false});
}

TEST(StarFieldTest, PositionsScaleWithTheView) {
    const auto stars = starField(200, 300).stars;
    expectStar(stars[29], {{46.29892424, 11.72808423}, 0.6422110323, 0.3229617762, false});
    EXPECT_EQ(starField(200, 300).orbit, QRectF(40, 255, 360, 114));
}

} // namespace
