#include "ui/screens/StyleShapes.h"

#include "ui/Contrast.h"

#include <QPainter>
#include <QStyleOption>

SmoothPainter::SmoothPainter(QPainter *painter)
    : m_painter(painter) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
}

SmoothPainter::~SmoothPainter() {
    m_painter->restore();
}

void fillRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color) {
    const SmoothPainter smooth(painter);
    painter->setPen(Qt::NoPen);
    painter->setBrush(color);
    painter->drawRoundedRect(rect, radius, radius);
}

void strokeRounded(QPainter *painter, const QRectF &rect, qreal radius, const QColor &color, qreal width) {
    const SmoothPainter smooth(painter);
    const qreal half = width / 2;
    painter->setPen(QPen(color, width));
    painter->setBrush(Qt::NoBrush);
    painter->drawRoundedRect(rect.adjusted(half, half, -half, -half), radius - half, radius - half);
}

void paintFocusRing(QPainter *painter, const QRectF &rect, qreal radius, const ThemeDefinition &theme) {
    const QColor color = readableColor(theme.primary, theme.bg, theme.text, 3);
    strokeRounded(painter, rect, radius, color, StyleMetrics::focusRingWidth);
}

bool showsFocusRing(const QStyleOption &option) {
    return option.state & QStyle::State_HasFocus && option.state & QStyle::State_KeyboardFocusChange;
}

QColor accentTextColor(const ThemeDefinition &theme) {
    return readableColor(theme.primary, theme.bg, theme.text);
}

QColor controlBorderColor(const ThemeDefinition &theme) {
    return mixed(theme.border, theme.textLight, 0.45);
}

QColor placeholderColor(const ThemeDefinition &theme) {
    return readableColor(theme.textLight, theme.bgWhite, theme.textSecondary, 4);
}
