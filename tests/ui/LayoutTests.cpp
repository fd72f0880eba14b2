#include "support/CoreTest.h"
#include "ui/FileSizeText.h"
#include "ui/FlowGeometry.h"
#include "ui/PaneLayout.h"

using namespace Qt::StringLiterals;

namespace {

TEST(FileSizeTextTest, ChangesItsUnitAtTheirBounds) {
    EXPECT_EQ(fileSizeText(0), u"0 B"_s);
    EXPECT_EQ(fileSizeText(1023), u"1023 B"_s);
    EXPECT_EQ(fileSizeText(1024), u"1.0 KB"_s);
    EXPECT_EQ(fileSizeText(1536), u"1.5 KB"_s);
    EXPECT_EQ(fileSizeText(1048575), u"1024.0 KB"_s);
    EXPECT_EQ(fileSizeText(1048576), u"1.0 MB"_s);
    EXPECT_EQ(fileSizeText(5'000'000'000), u"4768.4 MB"_s);
}

TEST(PaneLayoutTest, ListLeavesRoomForTheMessage) {
    EXPECT_EQ(maximumListWidth(1000), 664);
    EXPECT_EQ(maximumListWidth(596), 260);
    EXPECT_EQ(maximumListWidth(400), 260) << "never less than the list needs";
    EXPECT_EQ(heldListWidth(360, maximumListWidth(400)), 260);
    EXPECT_EQ(heldListWidth(500, 420), 420);
    EXPECT_EQ(heldListWidth(100, 420), 260);
}

TEST(PaneLayoutTest, ResetAndStepsStayWithinTheLimits) {
    EXPECT_EQ(resetListWidth(500), 360);
    EXPECT_EQ(resetListWidth(300), 300);
    EXPECT_EQ(narrowerListWidth(360), 340);
    EXPECT_EQ(narrowerListWidth(270), 260);
    EXPECT_EQ(widerListWidth(360, 500), 380);
    EXPECT_EQ(widerListWidth(490, 500), 500);
}

class StoredListWidthTest : public CoreTest {};

TEST_F(StoredListWidthTest, IsTheDefaultUntilANumberIsThere) {
    UserDefaults defaults(temporaryPath(u"defaults.json"_s));
    EXPECT_EQ(storedListWidth(defaults), 360);
    defaults.set(u"macMailListWidth"_s, u"wide"_s);
    EXPECT_EQ(storedListWidth(defaults), 360);
    storeListWidth(defaults, 412.5);
    EXPECT_EQ(defaults.number(u"macMailListWidth"_s), 412.5);
    EXPECT_EQ(storedListWidth(defaults), 412.5);
}

TEST(FlowGeometryTest, StartsARowWhereTheNextChildWouldNotFit) {
    const auto geometry = flowGeometry({{40, 10}, {50, 20}, {30, 10}, {200, 15}, {10, 5}}, 100, 4);
    const std::vector<QPoint> expected{{0, 0}, {44, 0}, {0, 24}, {0, 38}, {0, 57}};
    EXPECT_EQ(geometry.positions, expected);
    EXPECT_EQ(geometry.size, QSize(204, 62));
}

TEST(FlowGeometryTest, AChildThatJustFitsStays) {
    const std::vector<QPoint> expected{{0, 0}, {54, 0}};
    EXPECT_EQ(flowGeometry({{50, 10}, {46, 10}}, 100, 4).positions, expected);
    EXPECT_EQ(flowGeometry({}, 100, 4).size, QSize(0, 0));
}

} // namespace
