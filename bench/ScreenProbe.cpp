#include "ScreenProbe.h"

#include <QDeadlineTimer>
#include <QThread>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <xcb/xcb.h>

namespace {

constexpr auto lookInterval = std::chrono::microseconds(500);

} // namespace

ScreenProbe::ScreenProbe()
    : m_display(xcb_connect(nullptr, nullptr), xcb_disconnect) {
    if (xcb_connection_has_error(m_display.get()))
        throw std::runtime_error("there is no display");
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_display.get())).data->root;
}

bool ScreenProbe::shows(const QColor &color, const QRect &area) const {
    const auto request = xcb_get_image(m_display.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, int16_t(area.x()),
                                       int16_t(area.y()), uint16_t(area.width()), uint16_t(area.height()), ~0u);
    const std::unique_ptr<xcb_get_image_reply_t, void (*)(void *)> image(
        xcb_get_image_reply(m_display.get(), request, nullptr), std::free);
    if (!image)
        return false;
    const auto *bytes = xcb_get_image_data(image.get());
    const auto wanted = color.rgb() & 0xffffff;
    for (int offset = 0; offset + 4 <= xcb_get_image_data_length(image.get()); offset += 4) {
        uint32_t pixel = 0;
        std::memcpy(&pixel, bytes + offset, sizeof pixel);
        if ((pixel & 0xffffff) == wanted)
            return true;
    }
    return false;
}

bool ScreenProbe::waitUntil(const QColor &color, const QRect &area, bool wanted) const {
    const QDeadlineTimer deadline(std::chrono::seconds(10));
    while (!deadline.hasExpired()) {
        if (shows(color, area) == wanted)
            return true;
        QThread::usleep(lookInterval.count());
    }
    return false;
}
