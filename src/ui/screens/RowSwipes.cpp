#include "ui/screens/RowSwipes.h"

#include "ui/screens/RowDelegate.h"
#include "ui/screens/RowsView.h"
#include "ui/screens/SwipeTrack.h"

#include <QScrollBar>
#include <QShortcut>
#include <QWheelEvent>
#include <cmath>
#include <utility>

namespace {

constexpr auto pauseLength = std::chrono::milliseconds(200);
constexpr int slideLength = 160; // milliseconds
/// A notch of a wheel is 15 degrees.
constexpr double pixelsPerDegree = 40 / 15.0;

double sidewaysDistance(const QWheelEvent &event) {
    return event.pixelDelta().x() != 0 ? event.pixelDelta().x() : event.angleDelta().x() / 8.0 * pixelsPerDegree;
}

bool isSideways(const QWheelEvent &event) {
    return std::abs(event.angleDelta().x()) > std::abs(event.angleDelta().y());
}

} // namespace

RowSwipes::RowSwipes(RowsView *rows)
    : QObject(rows)
    , m_rows(rows)
    , m_track(new SwipeTrack(rows->viewport()))
    , m_escape(new QShortcut(Qt::Key_Escape, rows)) {
    m_escape->setEnabled(false);
    connect(m_escape, &QShortcut::activated, this, &RowSwipes::close);
    m_slide.setDuration(slideLength);
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant &at) { show(at.toDouble()); });
    connect(m_track, &SwipeTrack::actionChosen, this, &RowSwipes::perform);
    connect(m_track, &SwipeTrack::closeRequested, this, &RowSwipes::close);
    connect(rows, &RowsView::swipeRequested, this, &RowSwipes::open);
    connect(rows->verticalScrollBar(), &QScrollBar::valueChanged, this, &RowSwipes::close);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(rows->model(), signal, this, &RowSwipes::close);
    rows->viewport()->installEventFilter(this);
}

bool RowSwipes::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Wheel:
        return takeWheel(*static_cast<QWheelEvent *>(event));
    case QEvent::MouseButtonPress:
        return takePress();
    case QEvent::MouseButtonRelease:
        return std::exchange(m_awaitsRelease, false);
    case QEvent::Resize:
        close();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

/// A press beside the open track closes it and does nothing else.
bool RowSwipes::takePress() {
    m_awaitsRelease = isOpen();
    close();
    return m_awaitsRelease;
}

bool RowSwipes::takeWheel(const QWheelEvent &event) {
    if (event.phase() == Qt::ScrollBegin || event.phase() == Qt::ScrollEnd)
        m_isAbandoned = false;
    if (event.phase() == Qt::ScrollEnd && m_isPushing) {
        release();
        return true;
    }
    if (m_isAbandoned && isSideways(event)) {
        if (event.phase() == Qt::NoScrollPhase)
            forgetAbandonedPushLater();
        return true;
    }
    if (event.phase() == Qt::ScrollMomentum || !isSideways(event))
        return m_isPushing;
    const auto index = m_isPushing ? QModelIndex(m_row) : m_rows->indexAt(event.position().toPoint());
    if (index.isValid())
        push(index, sidewaysDistance(event));
    if (m_isPushing && event.phase() == Qt::NoScrollPhase)
        m_pause = Clock::shared().after(pauseLength, [this] { release(); });
    return true;
}

void RowSwipes::forgetAbandonedPushLater() {
    m_pause = Clock::shared().after(pauseLength, [this] { m_isAbandoned = false; });
}

void RowSwipes::push(const QModelIndex &index, double distance) {
    if (m_row != index)
        begin(index);
    m_isPushing = true;
    m_slide.stop();
    m_swipe.push(distance, m_rows->viewport()->width());
    prepareTrack();
    show(m_swipe.offset());
}

void RowSwipes::begin(const QModelIndex &index) {
    close();
    m_row = index;
    m_actions = m_rows->actionsOf(index);
    m_swipe = RowSwipe(m_actions.leading.size(), m_actions.trailing.size());
}

/// The track has the actions of the edge that lies open.
void RowSwipes::prepareTrack() {
    const auto edge = m_swipe.edge();
    if (edge == SwipeEdge::none || (edge == m_track->edge() && m_track->isVisible()))
        return;
    m_track->setAccessibleName(m_row.data().toString());
    m_track->setActions(edge, edge == SwipeEdge::leading ? m_actions.leading : m_actions.trailing);
}

void RowSwipes::release() {
    m_pause.reset();
    m_isPushing = false;
    const auto from = m_swipe.offset();
    const auto end = m_swipe.release();
    if (end == RowSwipe::End::performed)
        return perform(0);
    m_slide.setStartValue(from);
    slideTo(m_swipe.offset());
}

void RowSwipes::open(const QModelIndex &index, SwipeEdge edge) {
    if (!index.isValid())
        return;
    begin(index);
    m_swipe.open(edge);
    if (m_swipe.edge() == SwipeEdge::none)
        return close();
    m_rows->scrollTo(index);
    prepareTrack();
    show(m_swipe.offset());
    m_track->focusFirst();
}

void RowSwipes::perform(std::size_t number) {
    const auto actions = m_track->actions();
    close();
    if (number < actions.size())
        actions[number].perform();
}

void RowSwipes::close() {
    if (!isOpen())
        return;
    m_pause.reset();
    // The fingers that go on moving mean the row that was there, not the one that has come under them.
    if (std::exchange(m_isPushing, false)) {
        m_isAbandoned = true;
        forgetAbandonedPushLater();
    }
    m_slide.stop();
    m_swipe.close();
    const bool hadFocus = m_track->isAncestorOf(m_rows->window()->focusWidget());
    show(0);
    if (hadFocus)
        m_rows->setFocus();
    m_row = QPersistentModelIndex();
}

void RowSwipes::slideTo(double offset) {
    m_slide.setEndValue(offset);
    m_slide.start();
}

void RowSwipes::show(double offset) {
    auto *delegate = m_rows->rowDelegate();
    delegate->slidRow = m_row;
    delegate->slide = qRound(offset);
    m_track->layOpen(m_rows->visualRect(m_row), m_swipe, offset);
    m_escape->setEnabled(m_track->isVisibleTo(m_rows));
    m_rows->viewport()->update();
    if (offset == 0 && m_swipe.edge() == SwipeEdge::none && !m_isPushing)
        m_row = QPersistentModelIndex();
}
