#pragma once

#include <QColor>
#include <QRect>
#include <memory>

struct xcb_connection_t;

/// Looks at the display as a person does: at what stands on it, whoever drew it.
class ScreenProbe {
public:
    ScreenProbe();

    /// Whether a pixel of this colour stands within the area.
    bool shows(const QColor &color, const QRect &area) const;
    /// Waits until `shows` is as wanted; false after ten seconds.
    bool waitUntil(const QColor &color, const QRect &area, bool wanted = true) const;

private:
    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t *)> m_display;
    unsigned m_root = 0;
};
