#pragma once

#include <QAccessible>

/// Tells screen readers what the widget is where its class does not. To be called before the widget gets a name.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);
