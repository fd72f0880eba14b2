#pragma once

#include "rules/EmailTemplate.h"

#include <QStyledItemDelegate>

class QListWidgetItem;

/// A row for `TemplateRowDelegate`: name, subject and the beginning of the text.
QListWidgetItem *templateItem(const EmailTemplate &shown);

/// Draws a template in up to three lines.
class TemplateRowDelegate final : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
};
