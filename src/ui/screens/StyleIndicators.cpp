#include "ui/screens/StyleIndicators.h"

#include "ui/Contrast.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

QColor markColor(const QStyleOption &option, const ThemeDefinition &theme) {
    return option.state & QStyle::State_Enabled ? theme.primary : mixed(theme.primary, theme.bg, 0.55);
}

QColor emptyFill(const QStyleOption &option, const ThemeDefinition &theme) {
    return option.state & QStyle::State_MouseOver ? theme.bgHover : theme.bgWhite;
}

} // namespace

void paintCheckBox(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    constexpr qreal radius = 4;
    const QRectF rect = option.rect;
    if (!(option.state & (QStyle::State_On | QStyle::State_NoChange))) {
        fillRounded(painter, rect, radius, emptyFill(option, theme));
        strokeRounded(painter, rect, radius, controlBorderColor(theme), 1.5);
        return;
    }
    fillRounded(painter, rect, radius, markColor(option, theme));
    const bool isPartial = option.state & QStyle::State_NoChange;
    paintSymbol(painter, isPartial ? u"minus"_s : u"checkmark"_s, rect.adjusted(2, 2, -2, -2), theme.textOnPrimary());
}

void paintRadioButton(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    const QRectF rect = option.rect;
    const qreal radius = rect.width() / 2;
    if (!(option.state & QStyle::State_On)) {
        fillRounded(painter, rect, radius, emptyFill(option, theme));
        strokeRounded(painter, rect, radius, controlBorderColor(theme), 1.5);
        return;
    }
    fillRounded(painter, rect, radius, markColor(option, theme));
    fillRounded(painter, rect.adjusted(5, 5, -5, -5), radius - 5, theme.textOnPrimary());
}

void paintSwitch(QPainter *painter, const QRectF &rect, qreal position, bool isEnabled, const ThemeDefinition &theme) {
    const QColor off = mixed(theme.border, theme.textLight, 0.6);
    QColor track = mixed(off, theme.primary, position);
    if (!isEnabled)
        track = mixed(track, theme.bg, 0.5);
    fillRounded(painter, rect, rect.height() / 2, track);
    const qreal knob = rect.height() - 4;
    const qreal x = rect.left() + 2 + (rect.width() - knob - 4) * position;
    const QColor knobColor = mixed(Qt::white, theme.textOnPrimary(), position);
    fillRounded(painter, {x, rect.top() + 2, knob, knob}, knob / 2, knobColor);
}

void paintProgress(QPainter *painter, const QStyleOptionProgressBar &bar, const ThemeDefinition &theme) {
    constexpr qreal height = 6;
    const QRectF groove(bar.rect.left(), bar.rect.center().y() - height / 2 + 0.5, bar.rect.width(), height);
    fillRounded(painter, groove, height / 2, theme.border);
    const qreal range = std::max(bar.maximum - bar.minimum, 1);
    const qreal part = bar.maximum > bar.minimum ? (bar.progress - bar.minimum) / range : 0;
    if (part > 0)
        fillRounded(painter, {groove.topLeft(), QSizeF(std::max(groove.width() * part, height), height)}, height / 2,
                    theme.primary);
}

void paintTab(QPainter *painter, const QStyleOptionTab &tab, const ThemeDefinition &theme) {
    painter->save();
    const bool isSelected = tab.state & QStyle::State_Selected;
    const bool isHovered = tab.state & QStyle::State_MouseOver;
    if (isHovered && !isSelected)
        fillRounded(painter, QRectF(tab.rect).adjusted(2, 2, -2, -4), StyleMetrics::rowRadius, theme.bgHover);
    painter->setPen(isSelected ? accentTextColor(theme) : theme.textSecondary);
    painter->drawText(tab.rect, Qt::AlignCenter | Qt::TextShowMnemonic, tab.text);
    if (isSelected)
        fillRounded(painter, QRectF(tab.rect.left() + 8, tab.rect.bottom() - 1, tab.rect.width() - 16, 2), 1,
                    accentTextColor(theme));
    if (showsFocusRing(tab))
        paintFocusRing(painter, QRectF(tab.rect).adjusted(2, 2, -2, -4), StyleMetrics::rowRadius, theme);
    painter->restore();
}

QSize tabSize(const QSize &contents) {
    return {contents.width() + 8, std::max(contents.height() + 4, 36)};
}
