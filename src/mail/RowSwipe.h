#pragma once

/// The side of a row that a swipe lays open.
enum class SwipeEdge { none, leading, trailing };

/// How far a row is pushed aside and what that means. Lengths are in pixels.
class RowSwipe {
public:
    /// The room of one action in an open track, and how many there are.
    static constexpr double actionWidth = 76;
    static constexpr int actionCount = 2;
    static constexpr double trackWidth = actionWidth * actionCount;
    /// The part of the row's width from which on a swipe does the first action by itself.
    static constexpr double fullSwipePart = 0.55;

    enum class End { closed, open, performed };

    /// A gesture over a row of this width goes on by `distance`, to the right above 0.
    void push(double distance, double rowWidth);
    /// The gesture ends: the row closes, stays open, or has its first action done and closes.
    End release();
    void open(SwipeEdge edge);
    void close() { m_offset = 0; }

    /// Above 0 the leading edge lies open, below 0 the trailing one.
    double offset() const { return m_offset; }
    SwipeEdge edge() const;
    bool isFull() const;

private:
    double m_offset = 0;
    double m_rowWidth = 0;
};
