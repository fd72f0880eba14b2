#include "ui/screens/ListRowDelegate.h"

#include "ui/ListRow.h"
#include "ui/screens/AvatarView.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/RowColors.h"

#include <QPainter>

namespace {

constexpr int leastRowHeight = 56;
constexpr int avatarSize = 32;
constexpr int gap = 2;
/// Texts stand under each other whatever their direction.
constexpr auto atLeft = Qt::AlignLeft | Qt::AlignAbsolute;

QFont titleFont() {
    return themeFont(14, QFont::Medium);
}

QFont detailFont() {
    return themeFont(TextStyle::caption);
}

int textHeight(bool hasDetail) {
    const auto titleHeight = QFontMetrics(titleFont()).lineSpacing();
    return hasDetail ? titleHeight + gap + QFontMetrics(detailFont()).lineSpacing() : titleHeight;
}

/// Returns where the texts must end.
int paintCount(QPainter *painter, const QRect &place, const QString &count, const RowColors &colors) {
    if (count.isEmpty())
        return place.right();
    const auto width = QFontMetrics(detailFont()).horizontalAdvance(count);
    const auto left = place.right() - width;
    drawLine(painter, {left, place.top(), width + 1, place.height()}, detailFont(), colors.secondary, count);
    return left - 12;
}

void paintTexts(QPainter *painter, const QRect &place, const ListRow &row, const RowColors &colors) {
    const auto height = textHeight(!row.detail.isEmpty());
    QRect line(place.left(), place.top() + (place.height() - height) / 2, place.width(), textHeight(false));
    drawLine(painter, line, titleFont(), colors.text, row.title, atLeft);
    line.moveTop(line.bottom() + 1 + gap);
    line.setHeight(QFontMetrics(detailFont()).lineSpacing());
    drawLine(painter, line, detailFont(), colors.secondary, row.detail, atLeft);
}

} // namespace

ListRowDelegate::ListRowDelegate(Picture picture, QObject *parent)
    : RowDelegate(parent)
    , m_picture(picture) {}

QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const {
    return {200, std::max(leastRowHeight, textHeight(true) + 2 * rowMargin)};
}

void ListRowDelegate::paintContent(QPainter *painter, const QRect &place, const QModelIndex &index,
                                   const RowColors &colors) const {
    const auto &row = static_cast<const ListRowModel *>(index.model())->row(index.row());
    auto texts = place.adjusted(4, 0, 0, 0);
    texts.setRight(paintCount(painter, place, row.count, colors));
    if (m_picture == Picture::initials) {
        paintAvatar(painter, QRectF(texts.left(), place.center().y() - avatarSize / 2, avatarSize, avatarSize),
                    row.title);
        texts.setLeft(texts.left() + avatarSize + 12);
    }
    paintTexts(painter, texts, row, colors);
}
