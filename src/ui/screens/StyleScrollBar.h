#pragma once

#include "ui/ThemeDefinition.h"

#include <QRect>

class QPainter;
class QStyleOptionSlider;

/// Where the handle lies; a scroll bar has no arrows.
QRect scrollBarHandle(const QStyleOptionSlider &bar);
void paintScrollBar(QPainter *painter, const QStyleOptionSlider &bar, const ThemeDefinition &theme);
