#include "ui/screens/StyleMenus.h"

#include "ui/SystemColors.h"
#include "ui/screens/ButtonRole.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QMenu>
#include <QPainter>
#include <QStyleOptionMenuItem>

using namespace Qt::StringLiterals;

namespace {

constexpr int padding = 10;
constexpr int itemHeight = 30;
constexpr int separatorHeight = 9;
constexpr int markWidth = 24;

bool isChecked(const QStyleOptionMenuItem &item) {
    return item.checkType != QStyleOptionMenuItem::NotCheckable && item.checked;
}

/// Ticks and icons share one column.
int leadingWidth(const QStyleOptionMenuItem &item) {
    return item.menuHasCheckableItems || item.maxIconWidth > 0 ? markWidth : 0;
}

QColor itemColor(const QStyleOptionMenuItem &item, bool isDestructive, const ThemeDefinition &theme) {
    if (!(item.state & QStyle::State_Enabled))
        return item.palette.color(QPalette::Disabled, QPalette::Text);
    return isDestructive ? systemRed(theme) : theme.text;
}

void paintLeading(QPainter *painter, const QStyleOptionMenuItem &item, const QRect &rect, const QColor &color) {
    const QRect mark(rect.left(), rect.center().y() - StyleMetrics::iconSize / 2 + 1, StyleMetrics::iconSize,
                     StyleMetrics::iconSize);
    if (isChecked(item))
        paintSymbol(painter, u"checkmark"_s, mark, color);
    else if (!item.icon.isNull())
        item.icon.paint(painter, mark);
}

} // namespace

void paintPopupPanel(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    painter->save();
    painter->setPen(theme.border);
    painter->setBrush(theme.bgWhite);
    painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

bool isDestructiveItem(const QStyleOption &option, const QWidget *widget) {
    const auto *menu = qobject_cast<const QMenu *>(widget);
    return menu && isDestructive(menu->actionAt(option.rect.center()));
}

void paintMenuItem(QPainter *painter, const QStyleOptionMenuItem &item, bool isDestructive,
                   const ThemeDefinition &theme) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        painter->fillRect(QRect(item.rect.left() + padding, item.rect.center().y(), item.rect.width() - 2 * padding, 1),
                          theme.border);
        return;
    }
    painter->save();
    if (item.state & QStyle::State_Selected && item.state & QStyle::State_Enabled)
        fillRounded(painter, item.rect, StyleMetrics::rowRadius, theme.bgHover);
    const QColor color = itemColor(item, isDestructive, theme);
    painter->setPen(color);
    painter->setFont(item.font);
    QRect rect = item.rect.adjusted(padding, 0, -padding, 0);
    paintLeading(painter, item, rect, color);
    rect.setLeft(rect.left() + leadingWidth(item));
    const QStringList parts = item.text.split(u'\t');
    painter->drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic | Qt::TextSingleLine,
                      parts.first());
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu)
        paintSymbol(painter, u"chevron.right"_s, QRectF(rect.right() - 11, rect.center().y() - 5, 12, 12), color);
    painter->setPen(theme.textSecondary);
    if (parts.size() > 1)
        painter->drawText(rect, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine, parts.at(1));
    painter->restore();
}

void paintMenuBarItem(QPainter *painter, const QStyleOptionMenuItem &item, const ThemeDefinition &theme) {
    painter->save();
    if (item.state & (QStyle::State_Selected | QStyle::State_Sunken))
        fillRounded(painter, item.rect.adjusted(0, 2, 0, -2), StyleMetrics::rowRadius, theme.bgHover);
    painter->setPen(itemColor(item, false, theme));
    painter->drawText(item.rect, Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextSingleLine, item.text);
    painter->restore();
}

QSize menuItemSize(const QStyleOptionMenuItem &item, const QSize &contents) {
    if (item.menuItemType == QStyleOptionMenuItem::Separator)
        return {1, separatorHeight};
    // The menu itself adds the room for the shortcuts' column.
    const int width = contents.width() + 2 * padding + leadingWidth(item) + 24;
    return {width, std::max(itemHeight, contents.height() + 8)};
}

QSize menuBarItemSize(const QSize &contents) {
    return {contents.width() + 20, std::max(contents.height() + 10, 30)};
}
