#include "rules/TemplateRow.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(TemplateRow, ShowsTheTextWithoutItsMarkup) {
    const auto row = templateRowWithPreview({u"1"_s, u"Visit"_s, u""_s, u"<p>Hello,</p>\n  we <b>come</b> 1 < 2"_s});
    EXPECT_EQ(row.title, u"Visit"_s);
    EXPECT_EQ(row.detail, QString());
    EXPECT_EQ(row.preview, u"Hello, we come 1 < 2"_s);
    EXPECT_EQ(row.accessibleText, u"Visit, Hello, we come 1 < 2"_s);
}

TEST(TemplateRow, KeepsOfALongTextNoMoreThanALineCanShow) {
    EXPECT_EQ(templateRowWithPreview({u"1"_s, u"N"_s, std::nullopt, u"long "_s.repeated(1'000)}).preview.size(), 300);
}
