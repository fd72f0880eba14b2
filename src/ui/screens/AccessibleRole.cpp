#include "ui/screens/AccessibleRole.h"

#include <QAccessibleWidget>
#include <QWidget>
#include <mutex>

namespace {

constexpr auto roleProperty = "accessibleRole";

QAccessibleInterface *make(const QString &, QObject *object) {
    const auto role = object->property(roleProperty);
    return role.isValid() ? new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Role(role.toInt()))
                          : nullptr;
}

} // namespace

void setAccessibleRole(QWidget *widget, QAccessible::Role role) {
    static std::once_flag installed;
    std::call_once(installed, [] { QAccessible::installFactory(make); });
    widget->setProperty(roleProperty, int(role));
}
