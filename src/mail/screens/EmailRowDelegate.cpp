#include "mail/screens/EmailRowDelegate.h"

#include "mail/EmailListModel.h"
#include "mail/screens/FaviconAvatarView.h"
#include "ui/SystemColors.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/RowColors.h"
#include "ui/screens/Symbols.h"

#include <QPainter>
#include <QTextLayout>

namespace {

constexpr int leastRowHeight = 92;
constexpr int dotSize = 9;
constexpr int avatarSize = 32;
constexpr int starSize = 16;
constexpr int markSize = 13;
constexpr int previewLines = 2;

const EmailRow &rowAt(const QModelIndex &index) {
    return static_cast<const EmailListModel *>(index.model())->row(index.row());
}

/// The three fonts of a row and how high its text is.
struct RowFonts {
    explicit RowFonts(bool isUnread)
        : name(themeFont(TextStyle::body, isUnread ? QFont::Bold : QFont::Medium))
        , subject(themeFont(TextStyle::subheadline, isUnread ? QFont::DemiBold : QFont::Normal))
        , preview(themeFont(TextStyle::footnote)) {}

    int nameHeight() const { return QFontMetrics(name).lineSpacing(); }
    int subjectHeight() const { return QFontMetrics(subject).lineSpacing(); }
    int previewHeight() const { return previewLines * QFontMetrics(preview).lineSpacing(); }
    int height() const { return nameHeight() + subjectHeight() + previewHeight() + 2 * gap; }

    static constexpr int gap = 2;
    QFont name, subject, preview;
};

/// Draws the text in as many lines as there is room for, the last one cut off with an ellipsis.
void drawPreview(QPainter *painter, const QRect &place, const QFont &font, const QColor &color, const QString &text) {
    const QFontMetrics metrics(font);
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    painter->setFont(font);
    painter->setPen(color);
    layout.beginLayout();
    for (int number = 0; number < previewLines; ++number) {
        auto line = layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(place.width());
        const QRect linePlace(place.left(), place.top() + number * metrics.lineSpacing(), place.width(),
                              metrics.lineSpacing());
        const bool isLast = number == previewLines - 1;
        const auto rest = text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed();
        painter->drawText(linePlace, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          isLast ? metrics.elidedText(rest, Qt::ElideRight, place.width()) : rest);
    }
    layout.endLayout();
}

/// Draws date, paperclip and star at the end of the first line; returns where the name must end.
int paintTrailingMarks(QPainter *painter, const QRect &line, const EmailRow &row, const RowColors &colors) {
    const auto font = themeFont(TextStyle::caption);
    const auto dateWidth = QFontMetrics(font).horizontalAdvance(row.dateText);
    auto right = line.right() - dateWidth;
    drawLine(painter, {right, line.top(), dateWidth + 1, line.height()}, font,
             row.isUnread ? colors.accent : colors.secondary, row.dateText);
    const auto drawMark = [&](const QString &symbol, const QColor &color) {
        right -= markSize + 6;
        paintSymbol(painter, symbol, QRectF(right, line.center().y() - markSize / 2.0, markSize, markSize), color);
    };
    if (row.hasAttachment)
        drawMark(QStringLiteral("paperclip"), colors.secondary);
    if (row.isFlagged)
        drawMark(QStringLiteral("star.fill"), systemYellow(AppStyle::theme()));
    return right - 8;
}

void paintTexts(QPainter *painter, const QRect &place, const EmailRow &row, const RowColors &colors) {
    const RowFonts fonts(row.isUnread);
    auto y = place.top() + (place.height() - fonts.height()) / 2;
    QRect line(place.left(), y, place.width(), fonts.nameHeight());
    line.setRight(paintTrailingMarks(painter, line, row, colors));
    drawLine(painter, line, fonts.name, colors.text, row.name);
    y += fonts.nameHeight() + RowFonts::gap;
    drawLine(painter, {place.left(), y, place.width(), fonts.subjectHeight()}, fonts.subject, colors.text, row.subject);
    y += fonts.subjectHeight() + RowFonts::gap;
    drawPreview(painter, {place.left(), y, place.width(), fonts.previewHeight()}, fonts.preview, colors.secondary,
                row.preview);
}

} // namespace

QSize EmailRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const {
    return {200, std::max(leastRowHeight, RowFonts(true).height() + 2 * rowMargin)};
}

QRect EmailRowDelegate::starRect(const QRect &row) {
    return {row.left(), row.top(), rowMargin + starSize + 4, rowMargin + avatarSize + rowMargin};
}

void EmailRowDelegate::paintContent(QPainter *painter, const QRect &place, const QModelIndex &index,
                                    const RowColors &colors) const {
    const auto &row = rowAt(index);
    auto texts = place;
    texts.setLeft(paintLeading(painter, place, row, colors));
    paintTexts(painter, texts, row, colors);
}

/// Draws star, dot and picture; returns where the texts begin.
int EmailRowDelegate::paintLeading(QPainter *painter, const QRect &place, const EmailRow &row,
                                   const RowColors &colors) const {
    auto x = place.left();
    const auto middle = place.top() + rowMargin + avatarSize / 2;
    if (showsStars) {
        paintSymbol(painter, row.isFlagged ? QStringLiteral("star.fill") : QStringLiteral("star"),
                    QRectF(x, middle - starSize / 2, starSize, starSize),
                    row.isFlagged ? systemYellow(AppStyle::theme()) : colors.secondary);
        x += starSize + 8;
    }
    if (row.isUnread) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(AppStyle::theme().primary);
        painter->drawEllipse(QRectF(x, middle - dotSize / 2.0, dotSize, dotSize));
    }
    x += dotSize + 7;
    paintFaviconAvatar(painter, QRectF(x, middle - avatarSize / 2, avatarSize, avatarSize), row.domain, row.name);
    return x + avatarSize + 10;
}
