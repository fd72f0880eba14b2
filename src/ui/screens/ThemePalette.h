#pragma once

#include <QPalette>

struct ThemeDefinition;

/// The colours of a theme by the roles of the toolkit.
QPalette themePalette(const ThemeDefinition &theme);
