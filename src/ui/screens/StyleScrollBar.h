#pragma once

#include "ui/ThemeDefinition.h"

#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOptionSlider;

/// Where a part of the scroll bar lies; it has no arrows.
QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part);
void paintScrollBar(QPainter *painter, const QStyleOptionSlider &bar, const ThemeDefinition &theme);
