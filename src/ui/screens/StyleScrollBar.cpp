#include "ui/screens/StyleScrollBar.h"

#include "ui/Contrast.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>
#include <QStyleOptionSlider>

namespace {

constexpr int shortestHandle = 32;

int handleLength(const QStyleOptionSlider &bar, int grooveLength) {
    const qint64 range = qint64(bar.maximum) - bar.minimum;
    if (range <= 0)
        return grooveLength;
    const auto length = int(qint64(bar.pageStep) * grooveLength / (range + bar.pageStep));
    return std::clamp(length, std::min(shortestHandle, grooveLength), grooveLength);
}

QRect handleRect(const QStyleOptionSlider &bar) {
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    const int groove = isHorizontal ? bar.rect.width() : bar.rect.height();
    const int length = handleLength(bar, groove);
    const int start =
        QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, groove - length, bar.upsideDown);
    return isHorizontal ? QRect(bar.rect.left() + start, bar.rect.top(), length, bar.rect.height())
                        : QRect(bar.rect.left(), bar.rect.top() + start, bar.rect.width(), length);
}

} // namespace

QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part) {
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    const QRect handle = handleRect(bar);
    QRect rect = bar.rect;
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return handle;
    case QStyle::SC_ScrollBarGroove:
        return rect;
    case QStyle::SC_ScrollBarSubPage:
        isHorizontal ? rect.setRight(handle.left() - 1) : rect.setBottom(handle.top() - 1);
        return rect;
    case QStyle::SC_ScrollBarAddPage:
        isHorizontal ? rect.setLeft(handle.right() + 1) : rect.setTop(handle.bottom() + 1);
        return rect;
    default:
        return {};
    }
}

void paintScrollBar(QPainter *painter, const QStyleOptionSlider &bar, const ThemeDefinition &theme) {
    if (bar.minimum == bar.maximum)
        return;
    const bool isDragged = bar.state & QStyle::State_Sunken && bar.activeSubControls & QStyle::SC_ScrollBarSlider;
    const bool isHovered = bar.state & QStyle::State_MouseOver;
    const qreal inset = isHovered || isDragged ? 2 : 3;
    const QRectF handle = QRectF(handleRect(bar)).adjusted(inset, inset, -inset, -inset);
    const QColor color = mixed(theme.border, theme.textLight, isDragged ? 1.0 : isHovered ? 0.8 : 0.5);
    fillRounded(painter, handle, std::min(handle.width(), handle.height()) / 2, color);
}
