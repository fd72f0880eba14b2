#pragma once

#include "ui/screens/RowDelegate.h"

/// Draws a `ListRow`, with the initials of its title before it where the rows are people.
class ListRowDelegate final : public RowDelegate {
    Q_OBJECT
public:
    enum class Picture { none, initials };

    explicit ListRowDelegate(Picture picture, QObject *parent = nullptr);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

protected:
    void paintContent(QPainter *painter, const QRect &place, const QModelIndex &index,
                      const RowColors &colors) const override;

private:
    Picture m_picture;
};
