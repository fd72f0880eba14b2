#include "mail/RowSwipe.h"

#include <algorithm>
#include <cmath>

void RowSwipe::push(double distance, double rowWidth) {
    m_rowWidth = rowWidth;
    m_offset = std::clamp(m_offset + distance, -rowWidth, rowWidth);
}

SwipeEdge RowSwipe::edge() const {
    if (m_offset == 0)
        return SwipeEdge::none;
    return m_offset > 0 ? SwipeEdge::leading : SwipeEdge::trailing;
}

bool RowSwipe::isFull() const {
    return m_offset != 0 && std::abs(m_offset) >= std::max(fullSwipePart * m_rowWidth, trackWidth + 1);
}

RowSwipe::End RowSwipe::release() {
    if (isFull()) {
        close();
        return End::performed;
    }
    if (std::abs(m_offset) < trackWidth / 2) {
        close();
        return End::closed;
    }
    open(edge());
    return End::open;
}

void RowSwipe::open(SwipeEdge edge) {
    m_offset = edge == SwipeEdge::none ? 0 : edge == SwipeEdge::leading ? trackWidth : -trackWidth;
}
