#include "ui/screens/ButtonRole.h"

#include <QAbstractButton>
#include <QAction>
#include <QVariant>

namespace {
constexpr auto roleProperty = "buttonRole";
constexpr auto destructiveProperty = "destructive";
} // namespace

void setButtonRole(QAbstractButton *button, ButtonRole role) {
    button->setProperty(roleProperty, int(role));
    button->update();
}

ButtonRole buttonRole(const QWidget *widget) {
    return widget ? ButtonRole(widget->property(roleProperty).toInt()) : ButtonRole::plain;
}

void setDestructive(QAction *action) {
    action->setProperty(destructiveProperty, true);
}

bool isDestructive(const QAction *action) {
    return action && action->property(destructiveProperty).toBool();
}
