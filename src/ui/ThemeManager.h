#pragma once

#include "platform/ObservableObject.h"
#include "platform/UserDefaults.h"
#include "ui/Themes.h"

#include <optional>

/// Which theme is chosen, and the colours that follow from it.
class ThemeManager : public ObservableObject {
    Q_OBJECT
public:
    explicit ThemeManager(UserDefaults &defaults = UserDefaults::standard(), QObject *parent = nullptr);

    const QString &currentThemeId() const { return m_currentThemeId; }
    /// Stores the id as it is, also one that no theme has.
    void setCurrentThemeId(const QString &id);

    ColorScheme systemColorScheme() const { return m_systemColorScheme; }
    void setSystemColorScheme(ColorScheme scheme);

    /// The reference stays valid for the life of the process.
    const ThemeDefinition &currentTheme() const { return *m_currentTheme; }
    /// What the window's frame is to be drawn in; absent where the desktop's own choice applies.
    std::optional<ColorScheme> forcedColorScheme() const;

private:
    void resolve();

    UserDefaults &m_defaults;
    Published<QString> m_currentThemeId;
    Published<ColorScheme> m_systemColorScheme;
    const ThemeDefinition *m_currentTheme = nullptr;
};
