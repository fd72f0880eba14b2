#pragma once

#include <QPointF>
#include <QRectF>
#include <vector>

/// A dot of the star field.
struct Star {
    QPointF position;
    double radius;
    double opacity;
    /// Whether a thin cross is drawn through it.
    bool hasCross;
    bool operator==(const Star &) const = default;
};

/// The background of the theme `space` at one size: the same stars on every start.
struct StarField {
    /// In drawing order.
    std::vector<Star> stars;
    /// The bounds of the orbit that is stroked last.
    QRectF orbit;
};

StarField starField(double width, double height);
