#pragma once

#include <QAbstractListModel>
#include <QSet>
#include <algorithm>
#include <vector>

/// The rows of a list, each known by its `identity()`. New rows come in as the smallest change, so that a reload keeps
/// scroll position, selection and focus.
template <typename Row> class RowListModel : public QAbstractListModel {
public:
    using Rows = std::vector<Row>;
    using Identity = std::decay_t<decltype(std::declval<Row>().identity())>;
    using QAbstractListModel::QAbstractListModel;

    /// Of rows with the same identity the first is shown.
    void setRows(Rows rows);

    const Row &row(int index) const { return m_rows[std::size_t(index)]; }
    /// The place of a row; -1 when it is not in the list.
    int indexOf(const Identity &identity) const;

    int rowCount(const QModelIndex &parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }

private:
    static void removeRepeated(Rows &rows);
    static QSet<Identity> identities(const Rows &rows);
    void removeMissing(const QSet<Identity> &wanted);
    void placeRow(int place, const Rows &rows, const QSet<Identity> &present);
    void insertRun(int place, const Rows &rows, const QSet<Identity> &present);
    void moveRow(int from, int to);
    void replaceChanged(const Rows &rows);

    Rows m_rows;
};

template <typename Row> void RowListModel<Row>::setRows(Rows rows) {
    removeRepeated(rows);
    removeMissing(identities(rows));
    const auto present = identities(m_rows);
    for (int place = 0; place < int(rows.size()); ++place)
        placeRow(place, rows, present);
    replaceChanged(rows);
}

template <typename Row> int RowListModel<Row>::indexOf(const Identity &identity) const {
    const auto found = std::ranges::find_if(m_rows, [&](const Row &row) { return row.identity() == identity; });
    return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

template <typename Row> void RowListModel<Row>::removeRepeated(Rows &rows) {
    QSet<Identity> seen;
    std::erase_if(rows, [&](const Row &row) {
        const bool isRepeated = seen.contains(row.identity());
        seen.insert(row.identity());
        return isRepeated;
    });
}

template <typename Row> QSet<typename RowListModel<Row>::Identity> RowListModel<Row>::identities(const Rows &rows) {
    QSet<Identity> identities;
    for (const auto &row : rows)
        identities.insert(row.identity());
    return identities;
}

template <typename Row> void RowListModel<Row>::removeMissing(const QSet<Identity> &wanted) {
    const auto isMissing = [&](int place) { return !wanted.contains(row(place).identity()); };
    for (int last = int(m_rows.size()) - 1; last >= 0; --last) {
        if (!isMissing(last))
            continue;
        int first = last;
        while (first > 0 && isMissing(first - 1))
            --first;
        beginRemoveRows({}, first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
}

template <typename Row> void RowListModel<Row>::placeRow(int place, const Rows &rows, const QSet<Identity> &present) {
    const auto &identity = rows[std::size_t(place)].identity();
    if (place < int(m_rows.size()) && row(place).identity() == identity)
        return;
    if (present.contains(identity))
        moveRow(indexOf(identity), place);
    else
        insertRun(place, rows, present);
}

template <typename Row> void RowListModel<Row>::insertRun(int place, const Rows &rows, const QSet<Identity> &present) {
    auto end = rows.begin() + place;
    while (end != rows.end() && !present.contains(end->identity()))
        ++end;
    beginInsertRows({}, place, int(end - rows.begin()) - 1);
    m_rows.insert(m_rows.begin() + place, rows.begin() + place, end);
    endInsertRows();
}

template <typename Row> void RowListModel<Row>::moveRow(int from, int to) {
    beginMoveRows({}, from, from, {}, to);
    std::rotate(m_rows.begin() + to, m_rows.begin() + from, m_rows.begin() + from + 1);
    endMoveRows();
}

template <typename Row> void RowListModel<Row>::replaceChanged(const Rows &rows) {
    for (int place = 0; place < int(rows.size()); ++place) {
        if (row(place) == rows[std::size_t(place)])
            continue;
        m_rows[std::size_t(place)] = rows[std::size_t(place)];
        Q_EMIT dataChanged(index(place), index(place));
    }
}
