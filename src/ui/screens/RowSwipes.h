#pragma once

#include "platform/Clock.h"
#include "ui/RowActions.h"
#include "ui/RowSwipe.h"

#include <QPersistentModelIndex>
#include <QVariantAnimation>

class QShortcut;
class QWheelEvent;
class RowsView;
class SwipeTrack;

/// Lays a row's actions open when it is pushed aside by touch pad, sideways wheel or the arrow keys, and does the first
/// one when it is pushed all the way.
class RowSwipes final : public QObject {
    Q_OBJECT
public:
    explicit RowSwipes(RowsView *rows);

    /// Opens the track and puts the keyboard on its first action.
    void open(const QModelIndex &index, SwipeEdge edge);
    void close();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takePress();
    bool takeWheel(const QWheelEvent &event);
    void push(const QModelIndex &index, double distance);
    void release();
    void begin(const QModelIndex &index);
    void prepareTrack();
    void forgetAbandonedPushLater();
    void perform(std::size_t number);
    void slideTo(double offset);
    void show(double offset);
    bool isOpen() const { return m_row.isValid(); }

    RowsView *m_rows;
    SwipeTrack *m_track;
    /// Closes the open track wherever in the window the keyboard is.
    QShortcut *m_escape;
    RowSwipe m_swipe;
    QPersistentModelIndex m_row;
    RowActions m_actions;
    QVariantAnimation m_slide;
    /// Wheels that do not say when a gesture ends are given up after a pause.
    ScheduledWorkPtr m_pause;
    bool m_isPushing = false;
    /// The list has changed in the middle of a push.
    bool m_isAbandoned = false;
    /// The press that closed the track is still to be released.
    bool m_awaitsRelease = false;
};
