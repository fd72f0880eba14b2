#include "mail/EmailDragData.h"

#include "support/CoreTest.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(EmailDragDataTest, IsAnObjectForOneMessageAndAListForSeveral) {
    EXPECT_EQ(parseJSON(encodeEmailDrag({{7, u"A/ü"_s}})), parseJSON(R"({"uid": 7, "folder": "A/ü"})"));
    EXPECT_EQ(parseJSON(encodeEmailDrag({{7, u"A"_s}, {8, u"A"_s}})),
              parseJSON(R"([{"uid": 7, "folder": "A"}, {"uid": 8, "folder": "A"}])"));
    EXPECT_EQ(emailDragType, "public.json"_L1);
}

TEST(EmailDragDataTest, ReadsBoth) {
    EXPECT_THAT(decodeEmailDrag(R"({"uid": 7, "folder": "A"})"), ElementsAre(EmailDragData{7, u"A"_s}));
    EXPECT_THAT(decodeEmailDrag(R"([{"uid": 7, "folder": "A"}, {"uid": 8, "folder": "B"}])"),
                ElementsAre(EmailDragData{7, u"A"_s}, EmailDragData{8, u"B"_s}));
}

TEST(EmailDragDataTest, IgnoresOtherJSON) {
    for (const auto *bytes : {"", "x", "7", "{}", R"({"uid": "7", "folder": "A"})", R"([{"uid": 7}])", "[1]"})
        EXPECT_THAT(decodeEmailDrag(bytes), IsEmpty()) << bytes;
}
