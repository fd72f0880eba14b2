#pragma once

#include "ui/MenuEntry.h"
#include "ui/RowSwipe.h"

#include <QAbstractButton>

/// What lies behind a row that is pushed aside: its actions as buttons. Lies over the list where the row has left.
class SwipeTrack final : public QWidget {
    Q_OBJECT
public:
    explicit SwipeTrack(QWidget *list);

    /// The first action is the one at the row's edge.
    void setActions(SwipeEdge edge, std::vector<MenuEntry> actions);
    /// Lies in the part of the row that is `offset` pixels wide.
    void layOpen(const QRect &row, const RowSwipe &swipe, double offset);
    /// Puts the keyboard on the first action.
    void focusFirst();
    SwipeEdge edge() const { return m_edge; }
    const std::vector<MenuEntry> &actions() const { return m_actions; }

Q_SIGNALS:
    void actionChosen(std::size_t number);
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void placeButtons(bool isFull);
    void moveFocus(int step);
    void pressFocused();

    SwipeEdge m_edge = SwipeEdge::none;
    std::vector<MenuEntry> m_actions;
    std::vector<QAbstractButton *> m_buttons;
};
