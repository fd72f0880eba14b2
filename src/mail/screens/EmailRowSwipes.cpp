#include "mail/screens/EmailRowSwipes.h"

#include "mail/EmailListMenus.h"
#include "mail/screens/EmailRowDelegate.h"
#include "mail/screens/EmailRowsView.h"
#include "mail/screens/SwipeTrack.h"

#include <QScrollBar>
#include <QWheelEvent>
#include <cmath>

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

EmailRowSwipes::EmailRowSwipes(std::shared_ptr<EmailListState> state, EmailRowsView *rows)
    : QObject(rows)
    , m_state(std::move(state))
    , m_rows(rows)
    , m_track(new SwipeTrack(rows->viewport())) {
    m_slide.setDuration(slideLength);
    m_slide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, [this](const QVariant &at) { show(at.toDouble()); });
    connect(m_track, &SwipeTrack::actionChosen, this, &EmailRowSwipes::perform);
    connect(m_track, &SwipeTrack::closeRequested, this, &EmailRowSwipes::close);
    connect(rows, &EmailRowsView::swipeRequested, this, &EmailRowSwipes::open);
    connect(rows->verticalScrollBar(), &QScrollBar::valueChanged, this, &EmailRowSwipes::close);
    for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
        connect(rows->model(), signal, this, &EmailRowSwipes::close);
    rows->viewport()->installEventFilter(this);
}

bool EmailRowSwipes::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Wheel)
        return takeWheel(*static_cast<QWheelEvent *>(event));
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if ((isPress || event->type() == QEvent::Resize) && isOpen()) {
        close();
        return isPress;
    }
    return QObject::eventFilter(watched, event);
}

bool EmailRowSwipes::takeWheel(const QWheelEvent &event) {
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

void EmailRowSwipes::forgetAbandonedPushLater() {
    m_pause = Clock::shared().after(pauseLength, [this] { m_isAbandoned = false; });
}

void EmailRowSwipes::push(const QModelIndex &index, double distance) {
    if (m_row != index)
        begin(index);
    m_isPushing = true;
    m_slide.stop();
    m_swipe.push(distance, m_rows->viewport()->width());
    prepareTrack();
    show(m_swipe.offset());
}

void EmailRowSwipes::begin(const QModelIndex &index) {
    close();
    m_row = index;
}

/// The track has the actions of the edge that lies open.
void EmailRowSwipes::prepareTrack() {
    const auto edge = m_swipe.edge();
    const auto email = m_state->email(m_row.data(EmailListModel::UIDRole).toLongLong());
    if (edge == SwipeEdge::none || (edge == m_track->edge() && m_track->isVisible()))
        return;
    if (!email)
        return m_track->setActions(edge, {});
    m_track->setAccessibleName(m_row.data(EmailListModel::SubjectRole).toString());
    m_track->setActions(edge, edge == SwipeEdge::leading ? leadingSwipeActions(*m_state, *email)
                                                         : trailingSwipeActions(*m_state, *email));
}

void EmailRowSwipes::release() {
    m_pause.reset();
    m_isPushing = false;
    const auto from = m_swipe.offset();
    const auto end = m_swipe.release();
    if (end == RowSwipe::End::performed)
        return perform(0);
    m_slide.setStartValue(from);
    slideTo(m_swipe.offset());
}

void EmailRowSwipes::open(const QModelIndex &index, SwipeEdge edge) {
    if (!index.isValid())
        return;
    begin(index);
    m_rows->scrollTo(index);
    m_swipe.open(edge);
    prepareTrack();
    show(m_swipe.offset());
    m_track->focusFirst();
}

void EmailRowSwipes::perform(std::size_t number) {
    const auto actions = m_track->actions();
    close();
    if (number < actions.size())
        actions[number].perform();
}

void EmailRowSwipes::close() {
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

void EmailRowSwipes::slideTo(double offset) {
    m_slide.setEndValue(offset);
    m_slide.start();
}

void EmailRowSwipes::show(double offset) {
    auto *delegate = m_rows->rowDelegate();
    delegate->slidRow = m_row;
    delegate->slide = qRound(offset);
    m_track->layOpen(m_rows->visualRect(m_row), m_swipe, offset);
    m_rows->viewport()->update();
    if (offset == 0 && m_swipe.edge() == SwipeEdge::none && !m_isPushing)
        m_row = QPersistentModelIndex();
}
