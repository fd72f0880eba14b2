#pragma once

#include "ui/ThemeDefinition.h"

#include <vector>

enum class ColorScheme { light, dark };

/// The id of the theme that follows the desktop's appearance.
inline constexpr QStringView autoThemeId = u"auto";

/// All themes in the picker's order; the first is `auto`.
const std::vector<ThemeDefinition> &pickerThemes();

/// The theme to draw with: never `auto` itself, and `light` for an id that is not known. The reference stays valid.
const ThemeDefinition &resolvedTheme(QStringView id, ColorScheme systemColorScheme);
