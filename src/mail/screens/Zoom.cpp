#include "mail/screens/Zoom.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr qreal smallest = 0.25;
constexpr qreal largest = 5;
constexpr qreal step = 1.1;
/// One notch of a wheel, in eighths of a degree.
constexpr qreal notch = 120;

qreal stepped(qreal zoom, qreal steps) {
    return std::clamp(zoom * std::pow(step, steps), smallest, largest);
}

} // namespace

std::optional<qreal> zoomAfterKey(qreal zoom, const QKeyEvent *event) {
    // On many keyboards "+" shares its key with "=".
    const bool isPlus = event->modifiers() == Qt::ControlModifier && event->key() == Qt::Key_Equal;
    if (event->matches(QKeySequence::ZoomIn) || isPlus)
        return stepped(zoom, 1);
    if (event->matches(QKeySequence::ZoomOut))
        return stepped(zoom, -1);
    const auto modifiers = event->modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ControlModifier && event->key() == Qt::Key_0)
        return 1;
    return std::nullopt;
}

std::optional<qreal> zoomAfterWheel(qreal zoom, const QWheelEvent *event) {
    if (!(event->modifiers() & Qt::ControlModifier))
        return std::nullopt;
    return stepped(zoom, event->angleDelta().y() / notch);
}
