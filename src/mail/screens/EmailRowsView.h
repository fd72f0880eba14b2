#pragma once

#include "mail/RowSwipe.h"

#include <QListView>

class EmailRowDelegate;

/// The rows of a message list under keyboard and mouse. What a person asks of a row goes out as a signal.
class EmailRowsView final : public QListView {
    Q_OBJECT
public:
    explicit EmailRowsView(QWidget *parent = nullptr);

    EmailRowDelegate *rowDelegate() const { return m_delegate; }
    /// Outlines the row that a menu is about; an invalid index takes the outline away.
    void markMenuRow(const QModelIndex &index);

    /// Typed letters are nobody's search here: they go on to whoever else wants them.
    void keyboardSearch(const QString &) override {}

Q_SIGNALS:
    /// Return.
    void openRequested();
    /// Space, and Shift with it for the other direction.
    void pageMessageRequested(bool down);
    void deleteRequested();
    /// Right click, the menu key or Shift+F10.
    void menuRequested(const QModelIndex &index, const QPoint &globalPosition);
    void starPressed(const QModelIndex &index);
    void dragRequested(const QModelIndex &index);
    /// The arrow keys lay a row's actions open.
    void swipeRequested(const QModelIndex &index, SwipeEdge edge);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index, const QEvent *event) const override;

private:
    bool selectCurrentFirst(const QKeyEvent &event);
    bool handleKey(const QKeyEvent &event);
    bool isOnStar(const QPoint &position) const;
    void requestMenuOfCurrent();

    EmailRowDelegate *m_delegate;
    QPersistentModelIndex m_pressedRow;
    bool m_hasPressedStar = false;
};
