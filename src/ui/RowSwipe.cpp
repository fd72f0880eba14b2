#include "ui/RowSwipe.h"

#include <algorithm>
#include <cmath>

RowSwipe::RowSwipe(std::size_t leadingActions, std::size_t trailingActions)
    : m_leadingWidth(actionWidth * double(leadingActions))
    , m_trailingWidth(actionWidth * double(trailingActions)) {}

void RowSwipe::push(double distance, double rowWidth) {
    m_rowWidth = rowWidth;
    m_offset = std::clamp(m_offset + distance, m_trailingWidth > 0 ? -rowWidth : 0, m_leadingWidth > 0 ? rowWidth : 0);
}

SwipeEdge RowSwipe::edge() const {
    if (m_offset == 0)
        return SwipeEdge::none;
    return m_offset > 0 ? SwipeEdge::leading : SwipeEdge::trailing;
}

double RowSwipe::trackWidth(SwipeEdge edge) const {
    return edge == SwipeEdge::leading ? m_leadingWidth : edge == SwipeEdge::trailing ? m_trailingWidth : 0;
}

bool RowSwipe::isFull() const {
    return m_offset != 0 && std::abs(m_offset) >= std::max(fullSwipePart * m_rowWidth, trackWidth(edge()) + 1);
}

RowSwipe::End RowSwipe::release() {
    if (isFull()) {
        close();
        return End::performed;
    }
    if (m_offset == 0 || std::abs(m_offset) < trackWidth(edge()) / 2) {
        close();
        return End::closed;
    }
    open(edge());
    return End::open;
}

void RowSwipe::open(SwipeEdge edge) {
    m_offset = edge == SwipeEdge::leading ? trackWidth(edge) : -trackWidth(edge);
}
