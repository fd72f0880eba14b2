#pragma once

#include "ui/ThemeDefinition.h"

/// The colours of meaning, which no theme changes but for light and dark.
QColor systemBlue(const ThemeDefinition &theme);
QColor systemGreen(const ThemeDefinition &theme);
QColor systemRed(const ThemeDefinition &theme);
QColor systemOrange(const ThemeDefinition &theme);
QColor systemYellow(const ThemeDefinition &theme);
