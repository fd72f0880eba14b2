#include "mail/screens/EmailRowDelegate.h"

#include "mail/EmailListModel.h"
#include "ui/SystemColors.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/AvatarView.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/Symbols.h"

#include <QPainter>
#include <QTextLayout>

namespace {

constexpr int rowHeight = 92;
constexpr int margin = 12;
constexpr int dotSize = 9;
constexpr int avatarSize = 32;
constexpr int starSize = 16;
constexpr int markSize = 13;
constexpr int previewLines = 2;

const EmailRow &rowAt(const QModelIndex &index) {
    return static_cast<const EmailListModel *>(index.model())->row(index.row());
}

void drawLine(QPainter *painter, const QRect &place, const QFont &font, const QColor &color, const QString &text) {
    painter->setFont(font);
    painter->setPen(color);
    painter->drawText(place, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                      QFontMetrics(font).elidedText(text, Qt::ElideRight, place.width()));
}

/// Draws the text in as many lines as there is room for, the last one cut off with an ellipsis.
void drawPreview(QPainter *painter, const QRect &place, const QFont &font, const QColor &color, const QString &text) {
    const QFontMetrics metrics(font);
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WordWrap);
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
        const auto rest = text.mid(line.textStart(), isLast ? -1 : line.textLength());
        painter->drawText(linePlace, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          metrics.elidedText(rest, Qt::ElideRight, place.width()));
    }
    layout.endLayout();
}

} // namespace

QSize EmailRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &) const {
    return {200, rowHeight};
}

void EmailRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    const auto &row = rowAt(index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    paintFrame(painter, option, row);
    auto frame = option.rect.adjusted(margin, 0, -margin - 4, 0);
    frame.setLeft(paintLeading(painter, frame, row));
    paintTexts(painter, frame, row);
    painter->restore();
}

void EmailRowDelegate::paintFrame(QPainter *painter, const QStyleOptionViewItem &option, const EmailRow &) const {
    const auto &theme = AppStyle::theme();
    const QRectF frame = QRectF(option.rect).adjusted(6, 1, -6, -2);
    const bool isSelected = option.state & QStyle::State_Selected;
    if (isSelected || (option.state & QStyle::State_MouseOver)) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(isSelected ? theme.bgActive : theme.bgHover);
        painter->drawRoundedRect(frame, 8, 8);
    } else {
        painter->setPen(theme.borderLight);
        const auto y = option.rect.bottom();
        painter->drawLine(option.rect.left() + margin, y, option.rect.right() - margin, y);
    }
    if ((option.state & QStyle::State_HasFocus) && (option.state & QStyle::State_KeyboardFocusChange)) {
        painter->setPen(QPen(theme.primary, 2));
        painter->setBrush(Qt::NoBrush);
        painter->drawRoundedRect(frame.adjusted(1, 1, -1, -1), 7, 7);
    }
}

/// Draws star, dot and picture; returns where the texts begin.
int EmailRowDelegate::paintLeading(QPainter *painter, const QRect &frame, const EmailRow &row) const {
    const auto &theme = AppStyle::theme();
    auto x = frame.left();
    const auto middle = frame.top() + margin + avatarSize / 2;
    if (showsStars) {
        paintSymbol(painter, row.isFlagged ? QStringLiteral("star.fill") : QStringLiteral("star"),
                    QRectF(x, middle - starSize / 2, starSize, starSize),
                    row.isFlagged ? systemYellow(theme) : theme.textLight);
        x += starSize + 8;
    }
    if (row.isUnread) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(theme.primary);
        painter->drawEllipse(QRectF(x, middle - dotSize / 2.0, dotSize, dotSize));
    }
    x += dotSize + 7;
    paintAvatar(painter, QRectF(x, middle - avatarSize / 2, avatarSize, avatarSize), row.name);
    return x + avatarSize + 10;
}

void EmailRowDelegate::paintTexts(QPainter *painter, const QRect &frame, const EmailRow &row) const {
    const auto &theme = AppStyle::theme();
    const auto nameFont = themeFont(TextStyle::body, row.isUnread ? QFont::Bold : QFont::Medium);
    const auto subjectFont = themeFont(TextStyle::subheadline, row.isUnread ? QFont::DemiBold : QFont::Normal);
    const auto previewFont = themeFont(TextStyle::footnote);
    const auto nameHeight = QFontMetrics(nameFont).lineSpacing();
    const auto subjectHeight = QFontMetrics(subjectFont).lineSpacing();
    const auto previewHeight = previewLines * QFontMetrics(previewFont).lineSpacing();
    auto y = frame.top() + (rowHeight - nameHeight - subjectHeight - previewHeight - 4) / 2;

    QRect line(frame.left(), y, frame.width(), nameHeight);
    line.setRight(paintTrailingMarks(painter, line, row));
    drawLine(painter, line, nameFont, theme.text, row.name);
    y += nameHeight + 2;
    drawLine(painter, {frame.left(), y, frame.width(), subjectHeight}, subjectFont, theme.text, row.subject);
    y += subjectHeight + 2;
    drawPreview(painter, {frame.left(), y, frame.width(), previewHeight}, previewFont, theme.textSecondary,
                row.preview);
}

/// Draws date, paperclip and star at the end of the first line; returns where the name must end.
int EmailRowDelegate::paintTrailingMarks(QPainter *painter, const QRect &line, const EmailRow &row) const {
    const auto &theme = AppStyle::theme();
    const auto font = themeFont(TextStyle::caption);
    const auto dateWidth = QFontMetrics(font).horizontalAdvance(row.dateText);
    auto right = line.right() - dateWidth;
    drawLine(painter, {right, line.top(), dateWidth + 1, line.height()}, font,
             row.isUnread ? theme.primary : theme.textSecondary, row.dateText);
    const auto drawMark = [&](const QString &symbol, const QColor &color) {
        right -= markSize + 6;
        paintSymbol(painter, symbol, QRectF(right, line.center().y() - markSize / 2.0, markSize, markSize), color);
    };
    if (row.hasAttachment)
        drawMark(QStringLiteral("paperclip"), theme.textSecondary);
    if (row.isFlagged)
        drawMark(QStringLiteral("star.fill"), systemYellow(theme));
    return right - 8;
}
