#include "ui/screens/MacPaneDivider.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/PaneDividerAccessible.h"
#include "ui/screens/StyleShapes.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {
constexpr double shortestDrag = 2;
} // namespace

MacPaneDivider::MacPaneDivider(UserDefaults &defaults, QWidget *parent)
    : QWidget(parent)
    , m_defaults(defaults)
    , m_paneWidth(storedListWidth(defaults)) {
    PaneDividerAccessible::install();
    setFixedWidth(int(PaneLayout::dividerWidth));
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(u"Drag to resize list and viewer · Double-click to reset"_s);
    setAccessibleName(u"Email list width"_s);
    setAccessibleDescription(
        u"Drag left or right to resize. Double-click to reset. Arrow keys adjust while focused."_s);
}

void MacPaneDivider::setMaximum(double maximum) {
    m_maximum = maximum;
}

void MacPaneDivider::narrow() {
    setAndStore(narrowerListWidth(m_paneWidth));
}

void MacPaneDivider::widen() {
    setAndStore(widerListWidth(m_paneWidth, m_maximum));
}

void MacPaneDivider::setPaneWidth(double width) {
    if (m_paneWidth == width)
        return;
    m_paneWidth = width;
    Q_EMIT paneWidthChanged(width);
    QAccessibleValueChangeEvent changed(this, width);
    QAccessible::updateAccessibility(&changed);
}

void MacPaneDivider::setAndStore(double width) {
    setPaneWidth(width);
    storeListWidth(m_defaults, width);
}

void MacPaneDivider::enterEvent(QEnterEvent *) {
    update();
}

void MacPaneDivider::leaveEvent(QEvent *) {
    update();
}

void MacPaneDivider::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton)
        m_pressedAt = event->globalPosition();
}

void MacPaneDivider::mouseMoveEvent(QMouseEvent *event) {
    if (!m_pressedAt)
        return;
    const QPointF moved = event->globalPosition() - *m_pressedAt;
    if (!m_dragStart && std::hypot(moved.x(), moved.y()) < shortestDrag)
        return;
    if (!m_dragStart)
        m_dragStart = heldListWidth(m_paneWidth, m_maximum);
    setPaneWidth(heldListWidth(*m_dragStart + moved.x(), m_maximum));
}

void MacPaneDivider::mouseReleaseEvent(QMouseEvent *) {
    if (std::exchange(m_dragStart, std::nullopt))
        storeListWidth(m_defaults, m_paneWidth);
    m_pressedAt.reset();
    update();
}

void MacPaneDivider::mouseDoubleClickEvent(QMouseEvent *) {
    setAndStore(resetListWidth(m_maximum));
}

void MacPaneDivider::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Left)
        narrow();
    else if (event->key() == Qt::Key_Right)
        widen();
    else
        QWidget::keyPressEvent(event);
}

void MacPaneDivider::focusInEvent(QFocusEvent *) {
    update();
}

void MacPaneDivider::focusOutEvent(QFocusEvent *) {
    update();
}

void MacPaneDivider::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    QStyleOption option;
    option.initFrom(this);
    const bool isActive = underMouse() || m_dragStart || hasFocus();
    const QPointF center = rect().toRectF().center();
    painter.fillRect(QRectF(center.x() - 1, 0, 2, height()), isActive ? accentTextColor(theme) : theme.border);
    const QRectF grip(center.x() - 2, center.y() - 14, 4, 28);
    fillRounded(&painter, grip, 2, isActive ? accentTextColor(theme) : controlBorderColor(theme));
    if (showsFocusRing(option))
        paintFocusRing(&painter, grip.adjusted(-5, -5, 5, 5), 7, theme);
}
