#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

struct RowColors;

/// The room to the left and right of a row's content.
inline constexpr int rowMargin = 12;

/// One line of text; what there is no room for is cut off with an ellipsis.
void drawLine(QPainter *painter, const QRect &place, const QFont &font, const QColor &color, const QString &text,
              Qt::Alignment alignment = Qt::AlignLeft);

/// Draws one row of a `RowsView`: its frame here, its content in a subclass.
class RowDelegate : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The row that a menu is about; drawn with an outline.
    QPersistentModelIndex menuRow;
    /// The row that is pushed aside, and by how many pixels: to the right above 0, to the left below.
    QPersistentModelIndex slidRow;
    int slide = 0;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const final;

protected:
    /// `place` is the row without its margins to the left and right.
    virtual void paintContent(QPainter *painter, const QRect &place, const QModelIndex &index,
                              const RowColors &colors) const = 0;

private:
    bool showsRing(const QStyleOptionViewItem &option, const QModelIndex &index) const;
};
