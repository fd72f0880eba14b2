#pragma once

#include "ui/screens/RowDelegate.h"

struct EmailRow;

/// Draws one message of a list: picture, sender, date, subject and the start of its text.
class EmailRowDelegate final : public RowDelegate {
    Q_OBJECT
public:
    using RowDelegate::RowDelegate;

    /// Whether a star stands in front of each row.
    bool showsStars = false;

    /// Where the star in front of a row can be pressed.
    static QRect starRect(const QRect &row);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void paintContent(QPainter *painter, const QRect &place, const QModelIndex &index,
                      const RowColors &colors) const override;

private:
    int paintLeading(QPainter *painter, const QRect &place, const EmailRow &row, const RowColors &colors) const;
};
