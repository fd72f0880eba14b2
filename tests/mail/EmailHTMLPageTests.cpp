#include "mail/EmailHTMLPage.h"

#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

ThemeDefinition lightTheme() {
    ThemeDefinition theme;
    theme.id = u"light"_s;
    theme.bgWhite = QColor(0xff, 0xff, 0xff);
    theme.text = QColor(0x0f, 0x17, 0x2a);
    theme.primary = QColor(0x25, 0x63, 0xeb);
    return theme;
}

} // namespace

TEST(EmailHTMLPage, IsTheBodyInsideThePageOfTheTheme) {
    EXPECT_EQ(emailHTMLPage(u"<p>100%1 & <b>"_s, lightTheme(), true).toUtf8(),
              "<!DOCTYPE html>\n<html><head>\n<meta name=\"color-scheme\" content=\"light\">\n<style>\n"
              "    html { color-scheme: light; background: #ffffff; }\n"
              "    body { font-family: -apple-system, system-ui, sans-serif; font-size: 14px;\n"
              "           color: #0f172a; background: #ffffff;\n"
              "           padding: 16px; margin: 0; word-wrap: break-word; line-height: 1.6; }\n"
              "    img { max-width: 100% !important; height: auto !important; }\n"
              "    a { color: #2563eb; }\n"
              "    pre, code { white-space: pre-wrap; word-break: break-all; }\n"
              "    table { max-width: 100%; }\n"
              "    \n"
              "</style>\n</head><body><p>100%1 & <b></body></html>");
}

TEST(EmailHTMLPage, HidesImagesUntilTheyAreWanted) {
    const auto hidden = emailHTMLPage(u"<img>"_s, lightTheme(), false);
    EXPECT_TRUE(hidden.contains(u"    table { max-width: 100%; }\n    img { display: none !important; }\n</style>"_s));
}

TEST(EmailHTMLPage, IsDarkUnderADarkTheme) {
    auto theme = lightTheme();
    theme.isDark = true;
    theme.bgWhite = QColor(0x1e, 0x29, 0x3b);
    const auto page = emailHTMLPage(u"<style>@media (prefers-color-scheme: light) { }</style>"_s, theme, true);
    EXPECT_TRUE(page.contains(u"content=\"dark\""_s));
    EXPECT_TRUE(page.contains(u"html { color-scheme: dark; background: #1e293b; }"_s));
    EXPECT_TRUE(page.contains(u"<style>@media not all { }</style>"_s));
}

struct ColorRow {
    const char *name;
    QColor color;
    const char *css;
};

class CssColor : public testing::TestWithParam<ColorRow> {};

TEST_P(CssColor, CutsEachComponent) {
    EXPECT_EQ(cssColor(GetParam().color).toLatin1(), GetParam().css);
}

INSTANTIATE_TEST_SUITE_P(, CssColor,
                         testing::Values(ColorRow{"EightBits", QColor(0x25, 0x63, 0xeb), "#2563eb"},
                                         ColorRow{"Half", QColor::fromRgbF(0.5F, 0.999F, 1.0F), "#7ffeff"},
                                         ColorRow{"OtherSpace", QColor::fromHsv(120, 255, 255), "#00ff00"},
                                         ColorRow{"Invalid", QColor(), "#000000"}),
                         rowName);

struct RewriteRow {
    const char *name;
    const char *scheme;
    QString html;
    QString expected;
};

class ColorSchemeRules : public testing::TestWithParam<RewriteRow> {};

TEST_P(ColorSchemeRules, FollowTheTheme) {
    const auto &row = GetParam();
    EXPECT_EQ(rewriteColorSchemeRules(row.html, QString::fromLatin1(row.scheme)), row.expected);
}

INSTANTIATE_TEST_SUITE_P(
    , ColorSchemeRules,
    testing::Values(
        RewriteRow{"BothUnderDark", "dark",
                   u"a@media (prefers-color-scheme: dark){b}c@media (prefers-color-scheme: light){d}e"_s,
                   u"a@media all{b}c@media not all{d}e"_s},
        RewriteRow{"BothUnderLight", "light",
                   u"a@media (prefers-color-scheme: dark){b}c@media (prefers-color-scheme: light){d}e"_s,
                   u"a@media not all{b}c@media all{d}e"_s},
        RewriteRow{"UpperCase", "dark", u"@MEDIA (PREFERS-COLOR-SCHEME: DARK){}"_s, u"@media all{}"_s},
        RewriteRow{"OnlyScreen", "dark", u"@media only screen and (prefers-color-scheme:dark){}"_s, u"@media all{}"_s},
        RewriteRow{"ScreenInUpperCase", "light", u"@Media Screen And ( Prefers-Color-Scheme : Dark ){}"_s,
                   u"@media not all{}"_s},
        RewriteRow{"LineBreaks", "dark", u"@media\n\tscreen\nand\n(\nprefers-color-scheme\n:\nlight\n){}"_s,
                   u"@media not all{}"_s},
        RewriteRow{"NoSpace", "dark", u"@media(prefers-color-scheme:dark){}"_s, u"@media all{}"_s},
        RewriteRow{"OtherConditionsAfterIt", "dark", u"@media (prefers-color-scheme: dark) and (max-width: 600px){}"_s,
                   u"@media all and (max-width: 600px){}"_s},
        RewriteRow{"OtherConditionBeforeIt", "dark", u"@media (max-width: 600px) and (prefers-color-scheme: dark){}"_s,
                   u"@media (max-width: 600px) and (prefers-color-scheme: dark){}"_s},
        RewriteRow{"OtherWord", "dark", u"@media (prefers-color-scheme: no-preference){}"_s,
                   u"@media (prefers-color-scheme: no-preference){}"_s},
        RewriteRow{"Nothing", "dark", QString(), QString()}),
    rowName);
