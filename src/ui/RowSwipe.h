#pragma once

#include <cstddef>

/// The side of a row that a swipe lays open.
enum class SwipeEdge { none, leading, trailing };

/// How far a row is pushed aside and what that means. Lengths are in pixels.
class RowSwipe {
public:
    /// The room of one action in an open track.
    static constexpr double actionWidth = 76;
    /// The part of the row's width from which on a swipe does the first action by itself.
    static constexpr double fullSwipePart = 0.55;

    enum class End { closed, open, performed };

    RowSwipe() = default;
    /// How many actions lie behind the row's edges; at an edge without any it cannot be pushed.
    RowSwipe(std::size_t leadingActions, std::size_t trailingActions);

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
    double trackWidth(SwipeEdge edge) const;

    double m_leadingWidth = 0, m_trailingWidth = 0;
    double m_offset = 0;
    double m_rowWidth = 0;
};
