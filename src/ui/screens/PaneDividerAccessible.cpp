#include "ui/screens/PaneDividerAccessible.h"

#include "ui/screens/MacPaneDivider.h"

#include <mutex>

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface *make(const QString &, QObject *object) {
    auto *divider = qobject_cast<MacPaneDivider *>(object);
    return divider ? new PaneDividerAccessible(divider) : nullptr;
}

} // namespace

PaneDividerAccessible::PaneDividerAccessible(MacPaneDivider *divider)
    : QAccessibleWidget(divider, QAccessible::Slider) {}

void PaneDividerAccessible::install() {
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(make); });
}

void *PaneDividerAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ValueInterface)
        return static_cast<QAccessibleValueInterface *>(this);
    return QAccessibleWidget::interface_cast(type);
}

QString PaneDividerAccessible::text(QAccessible::Text kind) const {
    if (kind == QAccessible::Value)
        return QString::number(qRound(divider()->paneWidth())) + u" points"_s;
    return QAccessibleWidget::text(kind);
}

QStringList PaneDividerAccessible::actionNames() const {
    return {increaseAction(), decreaseAction()};
}

void PaneDividerAccessible::doAction(const QString &name) {
    if (name == increaseAction())
        divider()->widen();
    else if (name == decreaseAction())
        divider()->narrow();
}

QVariant PaneDividerAccessible::currentValue() const {
    return divider()->paneWidth();
}

/// Only steps are offered: whatever the direction, one step as the arrow keys do it.
void PaneDividerAccessible::setCurrentValue(const QVariant &value) {
    if (value.toDouble() > divider()->paneWidth())
        divider()->widen();
    else if (value.toDouble() < divider()->paneWidth())
        divider()->narrow();
}

QVariant PaneDividerAccessible::maximumValue() const {
    return divider()->maximum();
}

QVariant PaneDividerAccessible::minimumValue() const {
    return PaneLayout::listMinimum;
}

QVariant PaneDividerAccessible::minimumStepSize() const {
    return PaneLayout::keyStep;
}

MacPaneDivider *PaneDividerAccessible::divider() const {
    return static_cast<MacPaneDivider *>(object());
}
