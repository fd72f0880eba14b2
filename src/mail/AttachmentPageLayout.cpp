#include "mail/AttachmentPageLayout.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int margin = 16;
constexpr int gap = 12;
/// Pages of a document are not blown up beyond this to fill a wide window.
constexpr double largestFit = 2;

QSize roomForPages(const QSize &room) {
    return room.shrunkBy({margin, margin, margin, margin}).expandedTo({1, 1});
}

QSize scaled(const QSizeF &size, double scale) {
    return (size * scale).toSize().expandedTo({1, 1});
}

} // namespace

double AttachmentPageLayout::scaleForWidth(const QSize &room) const {
    return std::min(roomForPages(room).width() / widest().width(), largestFit);
}

double AttachmentPageLayout::scaleForPage(const QSize &room) const {
    const auto inner = roomForPages(room);
    const auto &page = m_sizes.first();
    return std::min({inner.width() / page.width(), inner.height() / page.height(), 1.0});
}

QSizeF AttachmentPageLayout::widest() const {
    return *std::ranges::max_element(m_sizes, {}, &QSizeF::width);
}

void AttachmentPageLayout::arrange(double scale, const QSize &room) {
    m_scale = scale;
    m_tops = {0};
    int width = 1;
    for (const auto &size : m_sizes) {
        const auto page = scaled(size, scale);
        m_tops.push_back(m_tops.back() + page.height() + gap);
        width = std::max(width, page.width());
    }
    const int height = m_tops.back() - gap + 2 * margin;
    m_size = QSize(width + 2 * margin, height).expandedTo(room);
    m_top = margin + std::max(0, (room.height() - height) / 2);
}

QRect AttachmentPageLayout::page(int number) const {
    const auto size = scaled(m_sizes[number], m_scale);
    return {QPoint((m_size.width() - size.width()) / 2, m_top + m_tops[std::size_t(number)]), size};
}

std::pair<int, int> AttachmentPageLayout::pagesIn(const QRect &area) const {
    if (m_tops.size() < 2)
        return {0, -1};
    const auto at = [this](int y) {
        const auto next = std::upper_bound(m_tops.begin(), m_tops.end(), y - m_top);
        return std::clamp(int(next - m_tops.begin()) - 1, 0, count() - 1);
    };
    return {at(area.top()), at(area.bottom())};
}
