#pragma once

#include <QStyle>
#include <optional>

/// Sizes and habits of the standard controls where they differ from the toolkit's own; absent where they do not.
std::optional<int> styleMeasure(QStyle::PixelMetric metric, const QWidget *widget);
std::optional<int> styleChoice(QStyle::StyleHint hint);
