#pragma once

#include "ui/RowActions.h"
#include "ui/RowSwipe.h"

#include <QListView>

class RowDelegate;

/// Whether the key writes a character.
bool isTyping(const QKeyEvent &event);

/// Painted rows under keyboard and mouse. What can be done to a row lies behind it when it is pushed aside, and in its
/// menu.
class RowsView : public QListView {
    Q_OBJECT
public:
    using ActionsOf = std::function<RowActions(const QModelIndex &)>;

    /// Takes the delegate as its child.
    explicit RowsView(RowDelegate *delegate, QWidget *parent = nullptr);

    /// To be called at most once, when the model is set.
    void offerActions(ActionsOf actionsOf);
    RowActions actionsOf(const QModelIndex &index) const { return m_actionsOf ? m_actionsOf(index) : RowActions(); }
    RowDelegate *rowDelegate() const { return m_delegate; }

    /// Typed letters are nobody's search here: they go on to whoever else wants them.
    void keyboardSearch(const QString &) override {}

Q_SIGNALS:
    /// Return or Space.
    void openRequested(const QModelIndex &index);
    void deleteRequested(const QModelIndex &index);
    /// The arrow keys lay a row's actions open.
    void swipeRequested(const QModelIndex &index, SwipeEdge edge);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void rowsInserted(const QModelIndex &parent, int first, int last) override;
    /// Whether the key was one of the rows' own.
    virtual bool handleKey(const QKeyEvent &event);

private:
    /// The keyboard is somewhere as long as there are rows; nothing gets selected by it.
    void ensureCurrent();
    bool startsHere(const QKeyEvent &event) const;
    bool selectCurrentFirst(const QKeyEvent &event);
    void showMenu(const QModelIndex &index, const QPoint &globalPosition);
    void showMenuOfCurrent();
    void markMenuRow(const QModelIndex &index);

    RowDelegate *m_delegate;
    QPoint m_pressedPlace;
    ActionsOf m_actionsOf;
};
