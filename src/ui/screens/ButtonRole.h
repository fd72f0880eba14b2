#pragma once

class QAbstractButton;
class QAction;
class QWidget;

/// What a button is for, which decides how it is drawn. A tool button is `plain`: a symbol without a frame.
enum class ButtonRole { plain, primary, destructive, link };

void setButtonRole(QAbstractButton *button, ButtonRole role);
ButtonRole buttonRole(const QWidget *widget);

/// Shows an entry of a menu in red.
void setDestructive(QAction *action);
bool isDestructive(const QAction *action);
