#include "ui/screens/StyleItems.h"

#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

void paintItemBackground(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    const bool isHovered = option.state & QStyle::State_MouseOver && option.state & QStyle::State_Enabled;
    if (option.state & QStyle::State_Selected) {
        fillRounded(painter, option.rect, StyleMetrics::rowRadius, theme.bgActive);
        paintSelectionMark(painter, option.rect, theme);
    } else if (isHovered)
        fillRounded(painter, option.rect, StyleMetrics::rowRadius, theme.bgHover);
}

void paintSelectionMark(QPainter *painter, const QRectF &row, const ThemeDefinition &theme) {
    constexpr qreal width = 3;
    const qreal height = std::min(row.height() * 0.55, 40.0);
    fillRounded(painter, {row.left(), row.center().y() - height / 2, width, height}, width / 2, theme.primary);
}

void paintDisclosure(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    const bool isOpen = option.state & QStyle::State_Open;
    QRectF arrow(0, 0, 10, 10);
    arrow.moveCenter(QRectF(option.rect).center());
    paintSymbol(painter, isOpen ? u"chevron.down"_s : u"chevron.right"_s, arrow, theme.textSecondary);
}

void paintHeaderSection(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    painter->fillRect(option.rect, theme.bg);
    painter->fillRect(QRect(option.rect.left(), option.rect.bottom(), option.rect.width(), 1), theme.border);
}

void paintSplitter(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    const bool isVerticalLine = option.state & QStyle::State_Horizontal;
    const QPoint center = option.rect.center();
    const QRect line = isVerticalLine ? QRect(center.x(), option.rect.top(), 1, option.rect.height())
                                      : QRect(option.rect.left(), center.y(), option.rect.width(), 1);
    painter->fillRect(line, theme.border);
}

QStyleOptionViewItem withRowColors(const QStyleOptionViewItem &item, const ThemeDefinition &theme) {
    QStyleOptionViewItem adjusted = item;
    adjusted.palette.setColor(QPalette::HighlightedText, theme.text);
    return adjusted;
}

QSize itemSize(const QSize &natural) {
    return {natural.width(), std::max(natural.height(), 30)};
}
