#include "ui/Themes.h"

#include <algorithm>
#include <array>

namespace {

/// One line of the table; the colours are 0xrrggbb, from `primary` to `borderLight`.
struct ThemeRow {
    const char *id;
    const char *name;
    bool isDark;
    std::array<QRgb, 12> colors;
    const char *previewColor;
};

constexpr bool light = false;
constexpr bool dark = true;

// clang-format off
constexpr ThemeRow themeRows[] = {
    {"auto", "Auto", light, {0x2563eb, 0xeff6ff, 0x1e40af, 0xf8fafc, 0xffffff, 0xf1f5f9, 0xeff6ff, 0x0f172a, 0x475569, 0x94a3b8, 0xe2e8f0, 0xf1f5f9}, "#2563eb"},
    {"light", "Light", light, {0x2563eb, 0xeff6ff, 0x1e40af, 0xf8fafc, 0xffffff, 0xf1f5f9, 0xeff6ff, 0x0f172a, 0x475569, 0x94a3b8, 0xe2e8f0, 0xf1f5f9}, "#2563eb"},
    {"space", "Deep Space", dark, {0x72ddf7, 0x142c40, 0xa9e8ff, 0x080e1c, 0x101b2f, 0x17253d, 0x22344f, 0xedf4ff, 0xc0cde2, 0x9aadc7, 0x243653, 0x1b2c45}, "#72ddf7"},
    {"amoled", "AMOLED Dark", dark, {0x3b82f6, 0x0f2547, 0x2563eb, 0x000000, 0x0a0a0a, 0x1a1a1a, 0x14223d, 0xf5f5f5, 0xa3a3a3, 0x6b7280, 0x1f1f1f, 0x141414}, "#000000"},
    {"dark", "Dark", dark, {0x2563eb, 0x1e3a5f, 0x1e40af, 0x0f172a, 0x1e293b, 0x283548, 0x1e3a5f, 0xe2e8f0, 0x94a3b8, 0x64748b, 0x334155, 0x1e293b}, "#0f172a"},
    {"ocean", "Ocean", light, {0x0891b2, 0xecfeff, 0x0e7490, 0xf0fdfa, 0xffffff, 0xe6fffa, 0xccfbf1, 0x134e4a, 0x2d6a6a, 0x5f9ea0, 0xb2dfdb, 0xe0f2f1}, "#0891b2"},
    {"ocean-dark", "Ocean Dark", dark, {0x22d3ee, 0x164e63, 0x06b6d4, 0x0c1e2b, 0x132f42, 0x1a3a50, 0x164e63, 0xcffafe, 0x67e8f9, 0x3b8ea5, 0x1e4d5e, 0x132f42}, "#0c1e2b"},
    {"emerald", "Emerald", light, {0x059669, 0xecfdf5, 0x047857, 0xf0fdf4, 0xffffff, 0xdcfce7, 0xd1fae5, 0x14532d, 0x3f6b52, 0x6b9e82, 0xbbf7d0, 0xecfdf5}, "#059669"},
    {"emerald-dark", "Emerald Dark", dark, {0x34d399, 0x064e3b, 0x10b981, 0x0a1f16, 0x122e22, 0x1a3d2e, 0x064e3b, 0xd1fae5, 0x6ee7b7, 0x3b7a5e, 0x1a4435, 0x122e22}, "#0a1f16"},
    {"sunset", "Sunset", light, {0xea580c, 0xfff7ed, 0xc2410c, 0xfffbf5, 0xffffff, 0xfff1e0, 0xfed7aa, 0x431407, 0x7c4a2d, 0xb87d5e, 0xfed7aa, 0xfff7ed}, "#ea580c"},
    {"sunset-dark", "Sunset Dark", dark, {0xfb923c, 0x5c2d0e, 0xf97316, 0x1c0f05, 0x2e1a0d, 0x3d2415, 0x5c2d0e, 0xfed7aa, 0xfb923c, 0x8a5c3a, 0x4a2816, 0x2e1a0d}, "#1c0f05"},
    {"rose", "Rose", light, {0xe11d48, 0xfff1f2, 0xbe123c, 0xfff5f6, 0xffffff, 0xffe4e6, 0xfecdd3, 0x4c0519, 0x7c3043, 0xb06078, 0xfecdd3, 0xfff1f2}, "#e11d48"},
    {"rose-dark", "Rose Dark", dark, {0xfb7185, 0x5c1030, 0xf43f5e, 0x1a0812, 0x2d1220, 0x3d1a2d, 0x5c1030, 0xfecdd3, 0xfb7185, 0x8a4058, 0x4a1630, 0x2d1220}, "#1a0812"},
    {"purple", "Purple", light, {0x7c3aed, 0xf5f3ff, 0x6d28d9, 0xfaf5ff, 0xffffff, 0xf3e8ff, 0xe9d5ff, 0x2e1065, 0x553c8b, 0x8b7ab0, 0xddd6fe, 0xf5f3ff}, "#7c3aed"},
    {"purple-dark", "Purple Dark", dark, {0xa78bfa, 0x3b1f7e, 0x8b5cf6, 0x13082b, 0x1e1040, 0x2a1855, 0x3b1f7e, 0xe9d5ff, 0xa78bfa, 0x6b5899, 0x2e1a5e, 0x1e1040}, "#13082b"},
    {"slate", "Slate", light, {0x475569, 0xf8fafc, 0x334155, 0xf8fafc, 0xffffff, 0xf1f5f9, 0xe2e8f0, 0x0f172a, 0x475569, 0x94a3b8, 0xcbd5e1, 0xf1f5f9}, "#475569"},
    {"midnight", "Midnight", dark, {0x818cf8, 0x1e1b4b, 0x6366f1, 0x020617, 0x0f172a, 0x1e293b, 0x1e1b4b, 0xe0e7ff, 0xa5b4fc, 0x6366f1, 0x1e293b, 0x0f172a}, "#020617"},
    {"nord", "Nord", light, {0x5e81ac, 0xeceff4, 0x4c6a8e, 0xeceff4, 0xffffff, 0xe5e9f0, 0xd8dee9, 0x2e3440, 0x4c566a, 0x7b88a1, 0xd8dee9, 0xeceff4}, "#5e81ac"},
    {"nord-dark", "Nord Dark", dark, {0x88c0d0, 0x2e3440, 0x81a1c1, 0x242933, 0x2e3440, 0x3b4252, 0x434c5e, 0xeceff4, 0xd8dee9, 0x7b88a1, 0x3b4252, 0x2e3440}, "#242933"},
    {"sakura", "Sakura", light, {0xd946a8, 0xfdf2f8, 0xbe185d, 0xfdf2f8, 0xffffff, 0xfce7f3, 0xfbcfe8, 0x500724, 0x8b3a60, 0xc07898, 0xf9a8d4, 0xfce7f3}, "#d946a8"},
    {"coffee", "Coffee", light, {0x92400e, 0xfef3c7, 0x78350f, 0xfffbeb, 0xffffff, 0xfef3c7, 0xfde68a, 0x451a03, 0x6b4423, 0xa07850, 0xfbbf24, 0xfef3c7}, "#92400e"},
    {"coffee-dark", "Coffee Dark", dark, {0xd97706, 0x3d1f04, 0xb45309, 0x1a1006, 0x2a1c0e, 0x3a2818, 0x3d1f04, 0xfde68a, 0xd97706, 0x7a5c2e, 0x3d2a12, 0x2a1c0e}, "#1a1006"},
    {"forest", "Forest", light, {0x16653a, 0xf0fdf4, 0x14532d, 0xf0fdf4, 0xffffff, 0xdcfce7, 0xbbf7d0, 0x052e16, 0x2d5f3e, 0x5f9670, 0x86efac, 0xdcfce7}, "#16653a"},
    {"dracula", "Dracula", dark, {0xbd93f9, 0x2c2042, 0xa06cff, 0x1e1f29, 0x282a36, 0x343746, 0x44475a, 0xf8f8f2, 0xc0c0d0, 0x6272a4, 0x44475a, 0x282a36}, "#282a36"},
    {"solarized", "Solarized", light, {0x268bd2, 0xfdf6e3, 0x2176b5, 0xfdf6e3, 0xffffff, 0xeee8d5, 0xe4ddc8, 0x073642, 0x586e75, 0x93a1a1, 0xd3cbb7, 0xeee8d5}, "#268bd2"},
    {"solarized-dark", "Solarized Dark", dark, {0x268bd2, 0x073642, 0x2176b5, 0x002b36, 0x073642, 0x0a4050, 0x0d4f60, 0xfdf6e3, 0x93a1a1, 0x586e75, 0x0a4050, 0x073642}, "#002b36"},
};
// clang-format on

ThemeDefinition definition(const ThemeRow &row) {
    const auto &c = row.colors;
    return {.id = QString::fromLatin1(row.id),
            .name = QString::fromLatin1(row.name),
            .isDark = row.isDark,
            .primary = QColor(c[0]),
            .primaryLight = QColor(c[1]),
            .primaryDark = QColor(c[2]),
            .bg = QColor(c[3]),
            .bgWhite = QColor(c[4]),
            .bgHover = QColor(c[5]),
            .bgActive = QColor(c[6]),
            .text = QColor(c[7]),
            .textSecondary = QColor(c[8]),
            .textLight = QColor(c[9]),
            .border = QColor(c[10]),
            .borderLight = QColor(c[11]),
            .previewColor = QString::fromLatin1(row.previewColor)};
}

const ThemeDefinition *find(QStringView id) {
    const auto &all = pickerThemes();
    const auto found = std::find_if(all.begin() + 1, all.end(), [&](const auto &theme) { return theme.id == id; });
    return found == all.end() ? nullptr : &*found;
}

} // namespace

const std::vector<ThemeDefinition> &pickerThemes() {
    static const std::vector<ThemeDefinition> themes = [] {
        std::vector<ThemeDefinition> made;
        std::transform(std::begin(themeRows), std::end(themeRows), std::back_inserter(made), definition);
        return made;
    }();
    return themes;
}

const ThemeDefinition &resolvedTheme(QStringView id, ColorScheme systemColorScheme) {
    if (id == autoThemeId)
        return *find(systemColorScheme == ColorScheme::dark ? u"amoled" : u"light");
    const auto *found = find(id);
    return found ? *found : *find(u"light");
}
