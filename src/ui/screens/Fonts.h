#pragma once

#include "ui/SpaceFonts.h"

/// The font of a text; all texts of the program get theirs from these two. The system's, unless the theme `space` is on
/// and its fonts are there.
QFont themeFont(TextStyle style, std::optional<QFont::Weight> weight = {});
/// `fixedSize` is in pixels that do not depend on the screen.
QFont themeFont(double fixedSize, QFont::Weight weight = QFont::Normal);
