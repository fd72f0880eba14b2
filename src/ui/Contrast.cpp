#include "ui/Contrast.h"

#include <algorithm>
#include <cmath>

namespace {

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrastRatio(const QColor &a, const QColor &b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor mixed(const QColor &a, const QColor &b, double part) {
    const auto mix = [part](float x, float y) { return float(x + (y - x) * part); };
    return QColor::fromRgbF(mix(a.redF(), b.redF()), mix(a.greenF(), b.greenF()), mix(a.blueF(), b.blueF()),
                            mix(a.alphaF(), b.alphaF()));
}

QColor readableColor(const QColor &color, const QColor &background, const QColor &strong, double ratio) {
    for (double part = 0; part < 1; part += 0.1) {
        const QColor candidate = mixed(color, strong, part);
        if (contrastRatio(candidate, background) >= ratio)
            return candidate;
    }
    return strong;
}
