#pragma once

#include <QPoint>
#include <QSize>
#include <vector>

/// Children put side by side in rows, each at its own size.
struct FlowGeometry {
    /// The top-left corners, in the order of the children.
    std::vector<QPoint> positions;
    /// The width counts the spacing behind the last child of the longest row.
    QSize size;
};

/// A row ends where the next child would pass `width`; a child wider than that has a row of its own.
FlowGeometry flowGeometry(const std::vector<QSize> &children, int width, int spacing);
