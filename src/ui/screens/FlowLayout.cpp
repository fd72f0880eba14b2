#include "ui/screens/FlowLayout.h"

#include "ui/FlowGeometry.h"

#include <QWidget>
#include <algorithm>
#include <limits>

namespace {

/// Wanted, unless a row is too short for it.
QSize sizeIn(int width, const QLayoutItem *item) {
    const auto wanted = item->sizeHint();
    return {std::min(wanted.width(), std::max(width, item->minimumSize().width())), wanted.height()};
}

} // namespace

FlowLayout::FlowLayout(int spacing, QWidget *parent)
    : QLayout(parent) {
    setSpacing(spacing);
    setContentsMargins(0, 0, 0, 0);
}

void FlowLayout::addItem(QLayoutItem *item) {
    m_items.emplace_back(item);
}

QLayoutItem *FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[size_t(index)].get() : nullptr;
}

QLayoutItem *FlowLayout::takeAt(int index) {
    if (index < 0 || index >= count())
        return nullptr;
    auto *item = m_items[size_t(index)].release();
    m_items.erase(m_items.begin() + index);
    return item;
}

int FlowLayout::heightForWidth(int width) const {
    const QMargins margins = contentsMargins();
    return geometryFor(width - margins.left() - margins.right()).size.height() + margins.top() + margins.bottom();
}

QSize FlowLayout::minimumSize() const {
    QSize size;
    for (const auto *item : shownItems())
        size = size.expandedTo(item->minimumSize());
    return size.grownBy(contentsMargins());
}

QSize FlowLayout::sizeHint() const {
    return geometryFor(std::numeric_limits<int>::max() / 2).size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect &rect) {
    QLayout::setGeometry(rect);
    const QRect inner = rect.marginsRemoved(contentsMargins());
    const auto items = shownItems();
    const auto geometry = geometryFor(inner.width());
    for (size_t i = 0; i < items.size(); ++i)
        items[i]->setGeometry({inner.topLeft() + geometry.positions[i], sizeIn(inner.width(), items[i])});
}

std::vector<QLayoutItem *> FlowLayout::shownItems() const {
    std::vector<QLayoutItem *> shown;
    for (const auto &item : m_items) {
        if (!item->isEmpty())
            shown.push_back(item.get());
    }
    return shown;
}

FlowGeometry FlowLayout::geometryFor(int width) const {
    std::vector<QSize> sizes;
    for (const auto *item : shownItems())
        sizes.push_back(sizeIn(width, item));
    return flowGeometry(sizes, width, spacing());
}
