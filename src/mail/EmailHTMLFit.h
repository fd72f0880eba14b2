#pragma once

#include <QtGlobal>

/// How far a page that is wider than its view is scaled down so that its whole width can be seen. A page that grows
/// with its view, so that scaling does not help, keeps its natural size.
class EmailHTMLFit {
public:
    /// Another page, or this one anew.
    void reset();
    /// The width of the view, in pixels.
    void setWidth(qreal width);
    /// From 0.5 to 1.
    qreal scale() const;
    /// Takes what the page says of itself, in CSS pixels. Whether the scale has changed.
    bool receive(qreal contentWidth, qreal visibleWidth);

private:
    qreal m_width = 0;
    /// The width that the page is laid out for, in CSS pixels; 0 for whatever there is.
    qreal m_needed = 0, m_formerlyNeeded = 0;
    /// How much stuck out before the last step.
    qreal m_overflow = 0;
    bool m_isSettled = false;
};
