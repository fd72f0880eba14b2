#include "ui/screens/RowDelegate.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/RowColors.h"
#include "ui/screens/StyleItems.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>

namespace {

constexpr qreal frameRadius = 8;

QRectF frameOf(const QStyleOptionViewItem &option) {
    return QRectF(option.rect).adjusted(6, 1, -6, -2);
}

bool isSelected(const QStyleOptionViewItem &option) {
    return option.state & QStyle::State_Selected;
}

void paintDivider(QPainter *painter, const QRect &row) {
    painter->setPen(AppStyle::theme().borderLight);
    painter->drawLine(row.left() + rowMargin, row.bottom(), row.right() - rowMargin, row.bottom());
}

} // namespace

void drawLine(QPainter *painter, const QRect &place, const QFont &font, const QColor &color, const QString &text,
              Qt::Alignment alignment) {
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(place, int(alignment | Qt::AlignVCenter) | Qt::TextSingleLine,
                      QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
}

void RowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const auto &theme = AppStyle::theme();
    const RowColors colors(option.state, theme);
    const SmoothPainter smooth(painter);
    if (index == slidRow)
        painter->translate(slide, 0);
    if (isSelected(option) || (option.state & QStyle::State_MouseOver))
        fillRounded(painter, frameOf(option), frameRadius, colors.background);
    else
        paintDivider(painter, option.rect);
    if (isSelected(option))
        paintSelectionMark(painter, frameOf(option), theme);
    paintContent(painter, option.rect.adjusted(rowMargin, 0, -rowMargin - 4, 0), index, colors);
    if (showsRing(option, index))
        paintFocusRing(painter, frameOf(option), frameRadius, theme);
}

/// The keyboard's place must be seen where no selection shows it.
bool RowDelegate::showsRing(const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const bool isFocused = option.state & QStyle::State_HasFocus;
    return index == menuRow || showsFocusRing(option) || (isFocused && !isSelected(option));
}
