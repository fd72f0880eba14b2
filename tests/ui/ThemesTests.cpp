#include "support/CoreTest.h"
#include "ui/Contrast.h"
#include "ui/SpaceFonts.h"
#include "ui/ThemeManager.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct ResolvingCase {
    const char *name;
    QString id;
    ColorScheme systemColorScheme;
    QString resolvedId;
};

class ResolvedThemeTest : public testing::TestWithParam<ResolvingCase> {};

TEST_P(ResolvedThemeTest, GivesTheThemeToDrawWith) {
    EXPECT_EQ(resolvedTheme(GetParam().id, GetParam().systemColorScheme).id, GetParam().resolvedId);
}

INSTANTIATE_TEST_SUITE_P(
    Cases, ResolvedThemeTest,
    testing::Values(ResolvingCase{"AutoByDay", u"auto"_s, ColorScheme::light, u"light"_s},
                    ResolvingCase{"AutoByNightIsAmoledNotDark", u"auto"_s, ColorScheme::dark, u"amoled"_s},
                    ResolvingCase{"ChosenThemeIgnoresTheSystem", u"rose"_s, ColorScheme::dark, u"rose"_s},
                    ResolvingCase{"LastRow", u"solarized-dark"_s, ColorScheme::light, u"solarized-dark"_s},
                    ResolvingCase{"UnknownIdIsLightEvenByNight", u"neon"_s, ColorScheme::dark, u"light"_s},
                    ResolvingCase{"EmptyId", QString(), ColorScheme::dark, u"light"_s},
                    ResolvingCase{"IdsAreCaseSensitive", u"Dracula"_s, ColorScheme::light, u"light"_s}),
    rowName);

TEST(ThemesTest, PickerOffersAutoAndThenTheOthersInOrder) {
    QStringList ids;
    for (const auto &theme : pickerThemes())
        ids.append(theme.id);
    EXPECT_EQ(ids.join(u' '), u"auto light space amoled dark ocean ocean-dark emerald emerald-dark sunset sunset-dark "
                              "rose rose-dark purple purple-dark slate midnight nord nord-dark sakura coffee "
                              "coffee-dark forest dracula solarized solarized-dark"_s);
}

TEST(ThemesTest, ColoursAreInTheirRoles) {
    const ThemeDefinition space{.id = u"space"_s,
                                .name = u"Deep Space"_s,
                                .isDark = true,
                                .primary = QColor(0x72ddf7),
                                .primaryLight = QColor(0x142c40),
                                .primaryDark = QColor(0xa9e8ff),
                                .bg = QColor(0x080e1c),
                                .bgWhite = QColor(0x101b2f),
                                .bgHover = QColor(0x17253d),
                                .bgActive = QColor(0x22344f),
                                .text = QColor(0xedf4ff),
                                .textSecondary = QColor(0xc0cde2),
                                .textLight = QColor(0x9aadc7),
                                .border = QColor(0x243653),
                                .borderLight = QColor(0x1b2c45),
                                .previewColor = u"#72ddf7"_s};
    EXPECT_TRUE(resolvedTheme(u"space", ColorScheme::light) == space);
}

TEST(ThemesTest, TextStandsOutFromItsBackgroundInEveryTheme) {
    for (const auto &theme : pickerThemes()) {
        EXPECT_GE(contrastRatio(theme.text, theme.bg), 7) << qPrintable(theme.id);
        EXPECT_GE(contrastRatio(theme.text, theme.bgActive), 4.5) << qPrintable(theme.id);
        EXPECT_EQ(theme.isDark, contrastRatio(theme.bg, Qt::white) > contrastRatio(theme.bg, Qt::black))
            << qPrintable(theme.id);
        const QColor link = readableColor(theme.primary, theme.bg, theme.text);
        EXPECT_GE(contrastRatio(link, theme.bg), 4.5) << qPrintable(theme.id);
    }
}

TEST(ContrastTest, FollowsTheFormula) {
    EXPECT_DOUBLE_EQ(contrastRatio(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(QColor(0x808080), QColor(0x808080)), 1);
    EXPECT_NEAR(contrastRatio(QColor(0x777777), Qt::white), 4.48, 0.005);
    EXPECT_EQ(readableColor(Qt::black, Qt::white, Qt::red), QColor(Qt::black)) << "no change without need";
}

class ThemeManagerTest : public CoreTest {
protected:
    ~ThemeManagerTest() override { setSpaceFontsActive(false); }

    UserDefaults defaults{temporaryPath(u"defaults.json"_s)};
};

TEST_F(ThemeManagerTest, StartsWithTheStoredThemeOrAuto) {
    EXPECT_EQ(ThemeManager(defaults).currentThemeId(), u"auto"_s);
    defaults.set(u"appTheme"_s, u"nord"_s);
    EXPECT_EQ(ThemeManager(defaults).currentThemeId(), u"nord"_s);
    EXPECT_EQ(ThemeManager(defaults).currentTheme().id, u"nord"_s);
}

TEST_F(ThemeManagerTest, KeepsAnUnknownIdAndShowsLight) {
    ThemeManager manager(defaults);
    manager.setCurrentThemeId(u"neon"_s);
    EXPECT_EQ(manager.currentThemeId(), u"neon"_s);
    EXPECT_EQ(defaults.text(u"appTheme"_s), u"neon"_s);
    EXPECT_EQ(manager.currentTheme().id, u"light"_s);
    EXPECT_EQ(manager.forcedColorScheme(), ColorScheme::light);
}

TEST_F(ThemeManagerTest, FollowsTheSystemOnlyWithAuto) {
    ThemeManager manager(defaults);
    EXPECT_EQ(manager.currentTheme().id, u"light"_s);
    manager.setSystemColorScheme(ColorScheme::dark);
    EXPECT_EQ(manager.currentTheme().id, u"amoled"_s);
    EXPECT_EQ(manager.forcedColorScheme(), std::nullopt);
    manager.setCurrentThemeId(u"sakura"_s);
    EXPECT_EQ(manager.currentTheme().id, u"sakura"_s);
    manager.setCurrentThemeId(u"midnight"_s);
    EXPECT_EQ(manager.forcedColorScheme(), ColorScheme::dark);
}

TEST_F(ThemeManagerTest, TellsItsObserversOnceAndOnlyOfChanges) {
    ThemeManager manager(defaults);
    int changes = 0;
    QObject::connect(&manager, &ObservableObject::changed, &manager, [&] { ++changes; });
    manager.setSystemColorScheme(ColorScheme::light);
    manager.setCurrentThemeId(u"auto"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 0);
    manager.setSystemColorScheme(ColorScheme::dark);
    manager.setCurrentThemeId(u"nord"_s);
    QCoreApplication::processEvents();
    EXPECT_EQ(changes, 1);
}

TEST_F(ThemeManagerTest, SwitchesTheFontsOfTheThemeSpace) {
    ThemeManager manager(defaults);
    manager.setCurrentThemeId(u"space"_s);
    EXPECT_TRUE(spaceFontsActive());
    manager.setCurrentThemeId(u"dark"_s);
    EXPECT_FALSE(spaceFontsActive());
}

TEST(SpaceFontsTest, TextStylesHaveTheirFontAndSize) {
    EXPECT_EQ(spaceFont(TextStyle::largeTitle), (SpaceFont{u"WLOrbit-SemiBold"_s, 34}));
    EXPECT_EQ(spaceFont(TextStyle::title, QFont::Black), (SpaceFont{u"WLOrbit-Bold"_s, 28}));
    EXPECT_EQ(spaceFont(TextStyle::title2, QFont::Light), (SpaceFont{u"WLOrbit-SemiBold"_s, 22}));
    EXPECT_EQ(spaceFont(TextStyle::title3), (SpaceFont{u"WLOrbit-SemiBold"_s, 20}));
    EXPECT_EQ(spaceFont(TextStyle::headline), (SpaceFont{u"WLOxanium-SemiBold"_s, 17}));
    EXPECT_EQ(spaceFont(TextStyle::headline, QFont::Normal), (SpaceFont{u"WLOxanium-Regular"_s, 17}));
    EXPECT_EQ(spaceFont(TextStyle::body), (SpaceFont{u"WLOxanium-Regular"_s, 17}));
    EXPECT_EQ(spaceFont(TextStyle::callout, QFont::Medium), (SpaceFont{u"WLOxanium-Medium"_s, 16}));
    EXPECT_EQ(spaceFont(TextStyle::subheadline, QFont::Bold), (SpaceFont{u"WLOxanium-Bold"_s, 15}));
    EXPECT_EQ(spaceFont(TextStyle::footnote, QFont::Light), (SpaceFont{u"WLOxanium-Regular"_s, 13}));
    EXPECT_EQ(spaceFont(TextStyle::caption), (SpaceFont{u"WLOxanium-Regular"_s, 12}));
    EXPECT_EQ(spaceFont(TextStyle::caption2), (SpaceFont{u"WLOxanium-Regular"_s, 11}));
}

TEST(SpaceFontsTest, FixedSizesUseTheDisplayFontOnlyWhenLargeAndBold) {
    EXPECT_EQ(spaceFont(22.0, QFont::Bold).name, u"WLOrbit-Bold"_s);
    EXPECT_EQ(spaceFont(21.9, QFont::Bold).name, u"WLOxanium-Bold"_s);
    EXPECT_EQ(spaceFont(40.0, QFont::DemiBold).name, u"WLOxanium-SemiBold"_s);
    EXPECT_EQ(spaceFont(40.0), (SpaceFont{u"WLOxanium-Regular"_s, 40}));
}

} // namespace
