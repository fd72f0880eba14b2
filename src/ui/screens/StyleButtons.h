#pragma once

#include "ui/ThemeDefinition.h"
#include "ui/screens/ButtonRole.h"

class QPainter;
class QStyleOptionButton;
class QSize;
class QStyleOptionToolButton;
class QWidget;

/// Buttons of dialogs that Return presses are primary, whoever made them.
ButtonRole roleOf(const QStyleOptionButton &button, const QWidget *widget);
void paintButtonPanel(QPainter *painter, const QStyleOptionButton &button, ButtonRole role,
                      const ThemeDefinition &theme);
void paintButtonLabel(QPainter *painter, const QStyleOptionButton &button, ButtonRole role,
                      const ThemeDefinition &theme);
void paintToolButton(QPainter *painter, const QStyleOptionToolButton &button, ButtonRole role,
                     const ThemeDefinition &theme);

/// `contents` is the size of symbol and text alone.
QSize buttonSize(ButtonRole role, const QSize &contents);
QSize toolButtonSize(const QStyleOptionToolButton &button, const QSize &contents);
