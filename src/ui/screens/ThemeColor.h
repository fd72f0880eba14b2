#pragma once

#include "ui/ThemeDefinition.h"

/// A colour that follows the theme.
using ThemeColor = QColor (*)(const ThemeDefinition &);
