#include "mail/screens/SidebarDelegate.h"

#include "mail/SidebarModel.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/Symbols.h"

#include <QPainter>

namespace {

constexpr int rowHeight = 34;
constexpr int headingHeight = 32;
constexpr int inset = 8;
constexpr int symbolSize = 16;
constexpr int badgeHeight = 18;

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
    painter->setPen(isSelected ? theme.textOnPrimary() : theme.isDark ? theme.text : theme.primaryDark);
    painter->drawText(badge, Qt::AlignCenter, text);
    return width + inset;
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
    const auto &theme = AppStyle::theme();
    const bool isSelected = option.state & QStyle::State_Selected;
    const auto frame = option.rect.adjusted(inset, 1, -inset, -1);
    if (isSelected || (option.state & QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? theme.bgActive : theme.bgHover);
        painter->drawRoundedRect(frame, 8, 8);
    }
    if ((option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_KeyboardFocusChange)) {
        painter->setPen(QPen(theme.primary, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(QRectF(frame).adjusted(1, 1, -1, -1), 7, 7);
    }
    const QRectF symbol(frame.left() + 10, frame.center().y() - symbolSize / 2.0 + 0.5, symbolSize, symbolSize);
    paintSymbol(painter, row.icon, symbol, isSelected ? theme.primary : theme.textSecondary);
    const auto badge = paintBadge(painter, frame, row.unread, isSelected);
    const auto font = themeFont(TextStyle::body, isSelected || row.unread > 0 ? QFont::DemiBold : QFont::Normal);
    painter->setFont(font);
    painter->setPen(theme.text);
    const QRect text(int(symbol.right()) + 10, frame.top(), frame.right() - badge - inset - int(symbol.right()) - 10,
                     frame.height());
    painter->drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                      QFontMetrics(font).elidedText(row.title, Qt::ElideRight, text.width()));
    painter->restore();
}

QSize SidebarDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const {
    return {100, rowAt(index).isHeading ? headingHeight : rowHeight};
}
