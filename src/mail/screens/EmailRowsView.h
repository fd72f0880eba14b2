#pragma once

#include "ui/screens/RowsView.h"

class EmailRowDelegate;

/// The rows of a message list under keyboard and mouse. What a person asks of a row goes out as a signal.
class EmailRowsView final : public RowsView {
    Q_OBJECT
public:
    explicit EmailRowsView(QWidget *parent = nullptr);

    EmailRowDelegate *rowDelegate() const;

Q_SIGNALS:
    /// Space, and Shift with it for the other direction.
    void pageMessageRequested(bool down);
    void starPressed(const QModelIndex &index);
    void dragRequested(const QModelIndex &index);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;
    bool handleKey(const QKeyEvent &event) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int first, int last) override;

private:
    bool isOnStar(const QPoint &position) const;

    QPersistentModelIndex m_pressedRow;
    bool m_hasPressedStar = false;
};
