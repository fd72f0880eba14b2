#pragma once

#include <QtGlobal>
#include <optional>

class QKeyEvent;
class QWheelEvent;

/// How large a message is shown after this key or this turn of the wheel, of which 1 is its natural size; absent when
/// they have nothing to do with it.
std::optional<qreal> zoomAfterKey(qreal zoom, const QKeyEvent *event);
std::optional<qreal> zoomAfterWheel(qreal zoom, const QWheelEvent *event);
