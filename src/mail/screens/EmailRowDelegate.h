#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

struct EmailRow;
struct RowColors;

/// Draws one message of a list: picture, sender, date, subject and the start of its text.
class EmailRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// Whether a star stands in front of each row.
    bool showsStars = false;
    /// The row that a menu is about; drawn with an outline.
    QPersistentModelIndex menuRow;
    /// The row that is pushed aside, and by how many pixels: to the right above 0, to the left below.
    QPersistentModelIndex slidRow;
    int slide = 0;

    /// Where the star in front of a row can be pressed.
    static QRect starRect(const QRect &row);

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    bool showsRing(const QStyleOptionViewItem &option, const QModelIndex &index) const;
    int paintLeading(QPainter *painter, const QRect &frame, const EmailRow &row, const RowColors &colors) const;
};
