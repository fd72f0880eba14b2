#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

/// Draws the sidebar's headings and folders: symbol, name and unread badge.
class SidebarDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The folder that would take what is dragged over it.
    QPersistentModelIndex dropTarget;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
