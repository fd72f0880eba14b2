#include "mail/screens/SidebarDelegate.h"

#include "mail/SidebarModel.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/RowColors.h"
#include "ui/screens/StyleItems.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>

namespace {

constexpr int rowHeight = 34;
constexpr int headingHeight = 32;
constexpr int inset = 8;
constexpr int symbolSize = 16;
constexpr int badgeHeight = 18;
constexpr qreal frameRadius = 8;

const SidebarModel::Row &rowAt(const QModelIndex &index) {
    return static_cast<const SidebarModel *>(index.model())->row(index.row());
}

void paintHeading(QPainter *painter, const QStyleOptionViewItem &option, const QString &title) {
    painter->setFont(themeFont(TextStyle::footnote, QFont::DemiBold));
    painter->setPen(AppStyle::theme().textSecondary);
    painter->drawText(option.rect.adjusted(2 * inset, inset, -inset, -2), Qt::AlignVCenter | Qt::AlignLeft, title);
}

/// Returns how much room the badge takes.
int paintBadge(QPainter *painter, const QRect &frame, qint64 count, bool isSelected) {
    if (count <= 0)
        return 0;
    const auto &theme = AppStyle::theme();
    const auto font = themeFont(TextStyle::caption, QFont::DemiBold);
    const auto text = QString::number(count);
    const auto width = std::max(badgeHeight, QFontMetrics(font).horizontalAdvance(text) + 12);
    const QRect badge(frame.right() - inset - width + 1, frame.center().y() - badgeHeight / 2 + 1, width, badgeHeight);
    painter->setPen(Qt::NoPen);
    painter->setBrush(isSelected ? theme.primary : theme.primaryLight);
    painter->drawRoundedRect(badge, badgeHeight / 2.0, badgeHeight / 2.0);
    painter->setFont(font);
    painter->setPen(isSelected
                        ? theme.textOnPrimary()
                        : readableColor(theme.isDark ? theme.text : theme.primaryDark, theme.primaryLight, theme.text));
    painter->drawText(badge, Qt::AlignCenter, text);
    return width + inset;
}

void paintFrame(QPainter *painter, const QRectF &frame, const QStyleOption &option, const RowColors &colors) {
    const auto &theme = AppStyle::theme();
    const bool isSelected = option.state & QStyle::State_Selected;
    if (isSelected || (option.state & QStyle::State_MouseOver))
        fillRounded(painter, frame, frameRadius, colors.background);
    if (isSelected)
        paintSelectionMark(painter, frame, theme);
    if (showsFocusRing(option))
        paintFocusRing(painter, frame, frameRadius, theme);
}

} // namespace

void SidebarDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const auto &row = rowAt(index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (row.isHeading) {
        paintHeading(painter, option, row.title);
        painter->restore();
        return;
    }
    const bool isSelected = option.state & QStyle::State_Selected;
    const RowColors colors(option.state, AppStyle::theme());
    const auto frame = option.rect.adjusted(inset, 1, -inset, -1);
    paintFrame(painter, frame, option, colors);
    if (index == dropTarget)
        strokeRounded(painter, frame, frameRadius, colors.accent, StyleMetrics::focusRingWidth);
    const QRectF symbol(frame.left() + 10, frame.center().y() - symbolSize / 2.0 + 0.5, symbolSize, symbolSize);
    paintSymbol(painter, row.icon, symbol, isSelected ? colors.accent : colors.secondary);
    const auto badge = paintBadge(painter, frame, row.unread, isSelected);
    const auto font = themeFont(TextStyle::body, isSelected || row.unread > 0 ? QFont::DemiBold : QFont::Normal);
    painter->setFont(font);
    painter->setPen(colors.text);
    const QRect text(int(symbol.right()) + 10, frame.top(), frame.right() - badge - inset - int(symbol.right()) - 10,
                     frame.height());
    painter->drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                      QFontMetrics(font).elidedText(row.title, Qt::ElideRight, text.width()));
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const {
    return {100, rowAt(index).isHeading ? headingHeight : rowHeight};
}
