#include "ui/ThemeManager.h"

#include "ui/SpaceFonts.h"

using namespace Qt::StringLiterals;

namespace {
const auto appThemeKey = u"appTheme"_s;
} // namespace

ThemeManager::ThemeManager(UserDefaults &defaults, QObject *parent)
    : ObservableObject(parent)
    , m_defaults(defaults)
    , m_currentThemeId(this, defaults.text(appThemeKey).value_or(autoThemeId.toString()))
    , m_systemColorScheme(this, ColorScheme::light) {
    resolve();
}

void ThemeManager::setCurrentThemeId(const QString &id) {
    m_currentThemeId = id;
    m_defaults.set(appThemeKey, id);
    setSpaceFontsActive(id == u"space");
    resolve();
}

void ThemeManager::setSystemColorScheme(ColorScheme scheme) {
    m_systemColorScheme = scheme;
    resolve();
}

std::optional<ColorScheme> ThemeManager::forcedColorScheme() const {
    if (currentThemeId() == autoThemeId)
        return std::nullopt;
    return currentTheme().isDark ? ColorScheme::dark : ColorScheme::light;
}

void ThemeManager::resolve() {
    m_currentTheme = &resolvedTheme(currentThemeId(), systemColorScheme());
}
