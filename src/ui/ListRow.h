#pragma once

#include "ui/RowListModel.h"

/// One row of a simple list, ready to be painted: a title with up to two lines below it.
struct ListRow {
    QString id;
    QString title;
    /// Empty for none.
    QString detail;
    /// A number at the row's end; empty for none.
    QString count;
    /// All that the row shows, in words.
    QString accessibleText;
    /// A second line below the title; empty for none.
    QString preview;

    const QString &identity() const { return id; }
    bool operator==(const ListRow &) const = default;
};

/// The rows of a simple list, known by their ids.
class ListRowModel final : public RowListModel<ListRow> {
    Q_OBJECT
public:
    using RowListModel::RowListModel;

    QVariant data(const QModelIndex &index, int role) const override;
};
