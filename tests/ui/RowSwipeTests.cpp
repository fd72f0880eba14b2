#include "ui/RowSwipe.h"

#include "support/CoreTest.h"

namespace {

using End = RowSwipe::End;

/// A swipe over a row of 400 pixels: full beyond 220, open from 76.
struct Swipe {
    const char *name;
    std::vector<double> pushes;
    End end;
    double offset;
    std::size_t leading = 2, trailing = 2;
};

class Swipes : public testing::TestWithParam<Swipe> {};

const Swipe swipes[] = {
    {"Timid", {30, 45}, End::closed, 0},
    {"Half", {30, 46}, End::open, 152},
    {"HalfToTheLeft", {-30, -46}, End::open, -152},
    {"AlmostFull", {219}, End::open, 152},
    {"Full", {100, 121}, End::performed, 0},
    {"FullToTheLeft", {-221}, End::performed, 0},
    {"FullAndBack", {300, -290}, End::closed, 0},
    {"Across", {100, -250}, End::open, -152},
    {"NeverBeyondTheRow", {900, -325}, End::closed, 0},
    {"Nothing", {}, End::closed, 0},
    {"OneAction", {-39}, End::open, -76, 0, 1},
    {"TimidOverOneAction", {-37}, End::closed, 0, 0, 1},
    {"FullOverOneAction", {-221}, End::performed, 0, 0, 1},
    {"WhereNoActionsAre", {300}, End::closed, 0, 0, 1},
    {"FromWhereNoActionsAre", {300, -39}, End::open, -76, 0, 1},
    {"WithoutActions", {300, -900}, End::closed, 0, 0, 0},
};

} // namespace

TEST_P(Swipes, EndLikeThis) {
    RowSwipe swipe(GetParam().leading, GetParam().trailing);
    for (const auto distance : GetParam().pushes)
        swipe.push(distance, 400);
    EXPECT_EQ(swipe.release(), GetParam().end);
    EXPECT_EQ(swipe.offset(), GetParam().offset);
}

INSTANTIATE_TEST_SUITE_P(, Swipes, testing::ValuesIn(swipes), rowName);

TEST(RowSwipeTest, GoesOnFromAnOpenTrack) {
    RowSwipe swipe(2, 2);
    swipe.open(SwipeEdge::trailing);
    EXPECT_EQ(swipe.edge(), SwipeEdge::trailing);
    swipe.push(-69, 400);
    EXPECT_TRUE(swipe.isFull());
    swipe.push(150, 400);
    EXPECT_EQ(swipe.release(), End::closed);
    EXPECT_EQ(swipe.edge(), SwipeEdge::none);
}

TEST(RowSwipeTest, NeedsMoreThanTheTrackInANarrowRow) {
    RowSwipe swipe(2, 2);
    swipe.push(152, 200);
    EXPECT_FALSE(swipe.isFull());
    swipe.push(1, 200);
    EXPECT_TRUE(swipe.isFull());
}
