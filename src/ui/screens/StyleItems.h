#pragma once

#include "ui/ThemeDefinition.h"

class QPainter;
class QStyleOption;
class QStyleOptionHeader;

/// The background of a row: hovered, selected, with the focus ring where the keyboard is.
void paintItemBackground(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
void paintHeaderSection(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
void paintSplitter(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
