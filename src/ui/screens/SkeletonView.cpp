#include "ui/screens/SkeletonView.h"

#include "ui/screens/AccessibleRole.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int rowCount = 10;
constexpr qreal rowHeight = 88;
constexpr qreal padding = 16;
constexpr qreal circle = 20;
constexpr qreal bar = 12;
constexpr qreal lineStep = 20;

void paintRow(QPainter &painter, qreal top, qreal width, const QColor &color) {
    const auto line = [&](int index, qreal length) {
        fillRounded(&painter, {padding + circle + 12, top + padding + index * lineStep, length, bar}, bar / 2, color);
    };
    fillRounded(&painter, {padding, top + padding - (circle - bar) / 2, circle, circle}, circle / 2, color);
    line(0, 120);
    line(1, std::max(width - 2 * padding - circle - 12, 0.0));
    line(2, 60);
}

} // namespace

SkeletonView::SkeletonView(QWidget *parent)
    : QWidget(parent) {
    setAccessibleRole(this, QAccessible::Animation);
    setAccessibleName(u"Loading"_s);
    m_shimmer.setStartValue(0.4);
    m_shimmer.setEndValue(1.0);
    m_shimmer.setDuration(800);
    m_shimmer.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&m_shimmer, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_shimmer, &QVariantAnimation::finished, this, &SkeletonView::reverse);
}

void SkeletonView::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    m_shimmer.start();
}

void SkeletonView::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    m_shimmer.stop();
}

void SkeletonView::reverse() {
    const bool wasForward = m_shimmer.direction() == QAbstractAnimation::Forward;
    m_shimmer.setDirection(wasForward ? QAbstractAnimation::Backward : QAbstractAnimation::Forward);
    m_shimmer.start();
}

void SkeletonView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setOpacity(m_shimmer.currentValue().toDouble());
    const auto &theme = AppStyle::theme();
    const QColor color = theme.border;
    for (int row = 0; row < rowCount; ++row)
        paintRow(painter, row * rowHeight, width(), color);
}
