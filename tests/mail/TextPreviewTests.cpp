#include "mail/TextPreview.h"

#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

TEST(CompactPreview, IsOneLineOfLimitedLength) {
    EXPECT_EQ(compactPreview(u"  one\r\n\t two\u00a0three  "_s, 200), u"one two three"_s);
    EXPECT_EQ(compactPreview(u" \n "_s, 200), QString());
    EXPECT_EQ(compactPreview(u"abcdef"_s, 4), u"abcd"_s);
    EXPECT_EQ(compactPreview(u"abc def"_s, 4), u"abc"_s);
    EXPECT_EQ(compactPreview(u"abc d"_s, 5), u"abc d"_s);
    EXPECT_EQ(compactPreview(u"ab😀cd"_s, 3), u"ab😀"_s);
}
