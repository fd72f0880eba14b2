#pragma once

#include <QStyledItemDelegate>

struct EmailRow;

/// Draws one message of a list: picture, sender, date, subject and the start of its text.
class EmailRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether a star stands in front of each row.
    bool showsStars = false;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void paintFrame(QPainter *painter, const QStyleOptionViewItem &option, const EmailRow &row) const;
    int paintLeading(QPainter *painter, const QRect &frame, const EmailRow &row) const;
    void paintTexts(QPainter *painter, const QRect &frame, const EmailRow &row) const;
    int paintTrailingMarks(QPainter *painter, const QRect &line, const EmailRow &row) const;
};
