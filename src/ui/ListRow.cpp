#include "ui/ListRow.h"

QVariant ListRowModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return row(index.row()).title;
    case Qt::AccessibleTextRole:
        return row(index.row()).accessibleText;
    default:
        return {};
    }
}
