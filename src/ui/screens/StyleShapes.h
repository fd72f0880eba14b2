#pragma once

#include "ui/ThemeDefinition.h"

#include <QRectF>

class QPainter;
class QStyleOption;

/// Measures that the whole kit shares, in pixels that do not depend on the screen.
struct StyleMetrics {
    static constexpr int controlHeight = 32;
    static constexpr qreal controlRadius = 8;
    static constexpr qreal rowRadius = 6;
    static constexpr qreal cardRadius = 12;
    static constexpr int buttonPadding = 16;
    static constexpr int fieldPadding = 10;
    static constexpr int iconSize = 16;
    static constexpr qreal focusRingWidth = 2;
};

/// Restores the painter when it goes out of scope; smooth edges meanwhile.
class SmoothPainter {
public:
    explicit SmoothPainter(QPainter *painter);
    ~SmoothPainter();
    SmoothPainter(const SmoothPainter &) = delete;
    SmoothPainter &operator=(const SmoothPainter &) = delete;

private:
    QPainter *m_painter;
};

void fillRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color);
/// The line lies inside of `rect`.
void strokeRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color, qreal width = 1);
void paintFocusRing(QPainter *painter, const QRectF &rect, qreal radius, const ThemeDefinition &theme);

/// Whether the control has the focus and the person uses the keyboard.
bool showsFocusRing(const QStyleOption &option);

/// The accent, strong enough to be read as text on pages and surfaces.
QColor accentTextColor(const ThemeDefinition &theme);
/// The edge of a field or a button, strong enough to be seen.
QColor controlBorderColor(const ThemeDefinition &theme);
/// Hints and prompts: faint, and still legible.
QColor placeholderColor(const ThemeDefinition &theme);
