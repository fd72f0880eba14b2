#include "ui/FlowGeometry.h"

FlowGeometry flowGeometry(const std::vector<QSize> &children, int width, int spacing) {
    FlowGeometry geometry;
    int x = 0, y = 0, rowHeight = 0, widest = 0;
    for (const QSize &child : children) {
        if (x > 0 && x + child.width() > width) {
            y += rowHeight + spacing;
            x = 0;
            rowHeight = 0;
        }
        geometry.positions.emplace_back(x, y);
        rowHeight = std::max(rowHeight, child.height());
        x += child.width() + spacing;
        widest = std::max(widest, x);
    }
    geometry.size = {widest, y + rowHeight};
    return geometry;
}
