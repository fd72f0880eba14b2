#include "ui/screens/StyleButtons.h"

#include "ui/Contrast.h"
#include "ui/SystemColors.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>
#include <QStyleOptionButton>

using namespace Qt::StringLiterals;

namespace {

bool isDown(const QStyleOption &option) {
    return option.state & (QStyle::State_Sunken | QStyle::State_On);
}

bool isHovered(const QStyleOption &option) {
    return option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled;
}

bool isEnabled(const QStyleOption &option) {
    return option.state & QStyle::State_Enabled;
}

QColor primaryFill(const QStyleOption &option, const ThemeDefinition &theme) {
    if (!isEnabled(option))
        return mixed(theme.primary, theme.bgWhite, 0.75);
    if (isDown(option))
        return theme.primaryDark;
    return isHovered(option) ? mixed(theme.primary, theme.primaryDark, 0.5) : theme.primary;
}

QColor plainFill(const QStyleOption &option, const ThemeDefinition &theme) {
    if (isDown(option))
        return theme.bgActive;
    return isHovered(option) ? theme.bgHover : theme.bgWhite;
}

QColor labelColor(const QStyleOption &option, ButtonRole role, const ThemeDefinition &theme) {
    if (!isEnabled(option))
        return role == ButtonRole::primary ? mixed(primaryFill(option, theme), theme.text, 0.35)
                                           : option.palette.color(QPalette::Disabled, QPalette::ButtonText);
    switch (role) {
    case ButtonRole::primary:
        return theme.textOnPrimary();
    case ButtonRole::destructive:
        return systemRed(theme);
    case ButtonRole::link:
        return isDown(option) ? mixed(accentTextColor(theme), theme.text, 0.4) : accentTextColor(theme);
    case ButtonRole::plain:
        break;
    }
    return theme.text;
}

void paintIconAndText(QPainter *painter, const QRect &rect, const QIcon &icon, const QSize &iconSize,
                      const QString &text, Qt::Alignment alignment) {
    const int textWidth = painter->fontMetrics().horizontalAdvance(text, Qt::TextShowMnemonic);
    const int gap = icon.isNull() || text.isEmpty() ? 0 : 8;
    const int width = std::min((icon.isNull() ? 0 : iconSize.width()) + gap + textWidth, rect.width());
    QRect content = QStyle::alignedRect(painter->layoutDirection(), alignment, {width, rect.height()}, rect);
    if (!icon.isNull()) {
        icon.paint(painter, QStyle::alignedRect(painter->layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter, iconSize,
                                                content));
        content =
            QStyle::visualRect(painter->layoutDirection(), rect, content.adjusted(iconSize.width() + gap, 0, 0, 0));
    }
    painter->drawText(content, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextSingleLine, text);
}

void underline(QPainter *painter) {
    QFont font = painter->font();
    font.setUnderline(true);
    painter->setFont(font);
}

/// The arrow of a button with a menu.
int paintMenuArrow(QPainter *painter, const QRect &rect, const QColor &color) {
    constexpr int size = 10;
    paintSymbol(painter, u"chevron.down"_s,
                QRectF(rect.right() - size - 5, rect.center().y() - size / 2 + 1, size, size), color);
    return size + 4;
}

} // namespace

ButtonRole roleOf(const QStyleOptionButton &button, const QWidget *widget) {
    const auto role = buttonRole(widget);
    const bool isDefault = button.features & QStyleOptionButton::DefaultButton;
    return role == ButtonRole::plain && isDefault ? ButtonRole::primary : role;
}

void paintButtonPanel(QPainter *painter, const QStyleOptionButton &button, ButtonRole role,
                      const ThemeDefinition &theme) {
    constexpr qreal radius = StyleMetrics::controlRadius;
    const bool hasRing = showsFocusRing(button);
    const QRectF rect = button.rect;
    const QRectF body = hasRing ? rect.adjusted(3, 3, -3, -3) : rect;
    if (role == ButtonRole::primary) {
        fillRounded(painter, body, hasRing ? radius - 3 : radius, primaryFill(button, theme));
    } else if (role != ButtonRole::link && !(button.features & QStyleOptionButton::Flat)) {
        fillRounded(painter, rect, radius, plainFill(button, theme));
        strokeRounded(painter, rect, radius, isEnabled(button) ? controlBorderColor(theme) : theme.border);
    }
    if (hasRing)
        paintFocusRing(painter, rect, radius, theme);
}

void paintButtonLabel(QPainter *painter, const QStyleOptionButton &button, ButtonRole role,
                      const ThemeDefinition &theme) {
    painter->save();
    const QColor color = labelColor(button, role, theme);
    painter->setPen(color);
    if (role == ButtonRole::link && isHovered(button))
        underline(painter);
    QRect rect = button.rect;
    if (button.features & QStyleOptionButton::HasMenu)
        rect.adjust(0, 0, -paintMenuArrow(painter, rect, color), 0);
    paintIconAndText(painter, rect, button.icon, button.iconSize, button.text, Qt::AlignCenter);
    painter->restore();
}

void paintToolButton(QPainter *painter, const QStyleOptionToolButton &button, ButtonRole role,
                     const ThemeDefinition &theme) {
    painter->save();
    const QRectF rect = button.rect;
    if (isDown(button) || isHovered(button))
        fillRounded(painter, rect, StyleMetrics::controlRadius, isDown(button) ? theme.bgActive : theme.bgHover);
    if (showsFocusRing(button))
        paintFocusRing(painter, rect, StyleMetrics::controlRadius, theme);
    QColor color = labelColor(button, role, theme);
    if (role == ButtonRole::plain && isEnabled(button))
        color = button.state & QStyle::State_On ? accentTextColor(theme) : theme.textSecondary;
    painter->setPen(color);
    QRect content = button.rect;
    if (button.features & QStyleOptionToolButton::HasMenu)
        content.adjust(0, 0, -paintMenuArrow(painter, content, color), 0);
    const bool hasText = button.toolButtonStyle != Qt::ToolButtonIconOnly;
    paintIconAndText(painter, content, button.toolButtonStyle == Qt::ToolButtonTextOnly ? QIcon() : button.icon,
                     button.iconSize, hasText ? button.text : QString(), Qt::AlignCenter);
    painter->restore();
}

QSize buttonSize(ButtonRole role, const QSize &contents) {
    const bool isLink = role == ButtonRole::link;
    const int padding = isLink ? 4 : StyleMetrics::buttonPadding;
    return {contents.width() + 2 * padding, std::max(contents.height() + 6, isLink ? 24 : StyleMetrics::controlHeight)};
}

QSize toolButtonSize(const QStyleOptionToolButton &button, const QSize &contents) {
    const int arrow = button.features & QStyleOptionToolButton::HasMenu ? 12 : 0;
    return {std::max(contents.width() + 14, StyleMetrics::controlHeight) + arrow,
            std::max(contents.height() + 10, StyleMetrics::controlHeight)};
}
