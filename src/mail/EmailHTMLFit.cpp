#include "mail/EmailHTMLFit.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr qreal smallestScale = 0.5;
/// Less than this part of the width may stick out: that is mostly an empty margin.
constexpr qreal bearable = 0.03;
/// What the page measured for another width of the view, before it heard of the present one, differs by more.
constexpr qreal tolerance = 2;

} // namespace

void EmailHTMLFit::reset() {
    m_needed = m_formerlyNeeded = m_overflow = 0;
    m_isSettled = false;
}

void EmailHTMLFit::setWidth(qreal width) {
    if (width == m_width)
        return;
    m_width = width;
    m_overflow = 0;
    m_isSettled = false;
}

qreal EmailHTMLFit::scale() const {
    return m_needed > 0 ? std::clamp(m_width / m_needed, smallestScale, 1.0) : 1;
}

bool EmailHTMLFit::receive(qreal contentWidth, qreal visibleWidth) {
    if (m_isSettled || scale() <= smallestScale || std::abs(visibleWidth - m_width / scale()) > tolerance)
        return false;
    const auto before = scale();
    const auto overflow = contentWidth - visibleWidth;
    if (overflow <= bearable * visibleWidth) {
        m_overflow = 0;
    } else if (m_overflow > 0 && overflow > m_overflow / 2) {
        m_needed = m_formerlyNeeded;
        m_isSettled = true;
    } else {
        m_formerlyNeeded = std::exchange(m_needed, contentWidth);
        m_overflow = overflow;
    }
    return scale() != before;
}
