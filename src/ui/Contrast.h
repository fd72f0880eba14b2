#pragma once

#include <QColor>

/// From 1 (the same) to 21 (black on white), by the formula of WCAG 2.1.
double contrastRatio(const QColor &a, const QColor &b);

/// `part` of `b` in `a`, from 0 to 1.
QColor mixed(const QColor &a, const QColor &b, double part);

/// `color` moved towards `strong` by as little as gives it this contrast on `background`.
QColor readableColor(const QColor &color, const QColor &background, const QColor &strong, double ratio = 4.5);
