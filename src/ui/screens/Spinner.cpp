#include "ui/screens/Spinner.h"

#include "ui/screens/AccessibleRole.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int spokes = 8;

} // namespace

Spinner::Spinner(int size, QWidget *parent)
    : QWidget(parent)
    , m_color([](const ThemeDefinition &theme) { return theme.textSecondary; }) {
    setAccessibleRole(this, QAccessible::Animation);
    setFixedSize(size, size);
    setAccessibleName(u"In progress"_s);
    m_turn.setStartValue(0);
    m_turn.setEndValue(spokes);
    m_turn.setDuration(800);
    m_turn.setLoopCount(-1);
    // Only whole steps change what is seen.
    connect(&m_turn, &QVariantAnimation::valueChanged, this, [this, shown = -1](const QVariant &step) mutable {
        if (std::exchange(shown, step.toInt()) != step.toInt())
            update();
    });
}

void Spinner::setColor(ThemeColor color) {
    m_color = color;
    update();
}

void Spinner::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    m_turn.start();
}

void Spinner::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    m_turn.stop();
}

void Spinner::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rect().toRectF().center());
    const qreal size = width();
    const qreal thickness = size / 9;
    QColor color = m_color(AppStyle::theme());
    for (int spoke = 0; spoke < spokes; ++spoke) {
        const int age = (m_turn.currentValue().toInt() - spoke + 2 * spokes) % spokes;
        color.setAlphaF(1.0f - 0.8f * float(age) / spokes);
        painter.save();
        painter.rotate(spoke * 360.0 / spokes);
        fillRounded(&painter, {-thickness / 2, -size / 2 + 1, thickness, size * 0.28}, thickness / 2, color);
        painter.restore();
    }
}
