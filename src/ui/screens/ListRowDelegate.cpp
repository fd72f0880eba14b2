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

struct Line {
    QString text;
    QFont font;
    QColor color;
    int height() const { return QFontMetrics(font).lineSpacing(); }
};

/// Those that have something to say.
std::vector<Line> linesOf(const ListRow &row, const RowColors &colors) {
    std::vector<Line> lines{{row.title, titleFont(), colors.text},
                            {row.detail, detailFont(), colors.secondary},
                            {row.preview, detailFont(), colors.secondary}};
    std::erase_if(lines, [](const Line &line) { return line.text.isEmpty(); });
    return lines;
}

/// Of a title with so many lines below it.
int textHeight(int details) {
    return QFontMetrics(titleFont()).lineSpacing() + details * (gap + QFontMetrics(detailFont()).lineSpacing());
}

int detailCount(const ListRow &row) {
    return int(!row.detail.isEmpty()) + int(!row.preview.isEmpty());
}

const ListRow &rowAt(const QModelIndex &index) {
    return static_cast<const ListRowModel *>(index.model())->row(index.row());
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
    int top = place.top() + (place.height() - textHeight(detailCount(row))) / 2;
    for (const auto &line : linesOf(row, colors)) {
        drawLine(painter, {place.left(), top, place.width(), line.height()}, line.font, line.color, line.text, atLeft);
        top += line.height() + gap;
    }
}

} // namespace

ListRowDelegate::ListRowDelegate(Picture picture, QObject *parent)
    : RowDelegate(parent)
    , m_picture(picture) {}

// Rows with one detail and rows without are of one height.
QSize ListRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const {
    const int details = index.isValid() ? std::max(detailCount(rowAt(index)), 1) : 1;
    return {200, std::max(leastRowHeight, textHeight(details) + 2 * rowMargin)};
}

void ListRowDelegate::paintContent(QPainter *painter, const QRect &place, const QModelIndex &index,
                                   const RowColors &colors) const {
    const auto &row = rowAt(index);
    auto texts = place.adjusted(4, 0, 0, 0);
    texts.setRight(paintCount(painter, place, row.count, colors));
    if (m_picture == Picture::initials) {
        paintAvatar(painter, QRectF(texts.left(), place.center().y() - avatarSize / 2, avatarSize, avatarSize),
                    row.title);
        texts.setLeft(texts.left() + avatarSize + 12);
    }
    paintTexts(painter, texts, row, colors);
}
