#pragma once

#include "ui/ThemeDefinition.h"

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionMenuItem;
class QWidget;

/// The background of menus, pop-up lists and tool tips.
void paintPopupPanel(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
/// Whether the menu's entry under `option` is shown in red.
bool isDestructiveItem(const QStyleOption &option, const QWidget *menu);
void paintMenuItem(QPainter *painter, const QStyleOptionMenuItem &item, bool isDestructive,
                   const ThemeDefinition &theme);
void paintMenuBarItem(QPainter *painter, const QStyleOptionMenuItem &item, const ThemeDefinition &theme);
/// `contents` is the size of the text alone.
QSize menuItemSize(const QStyleOptionMenuItem &item, const QSize &contents);
QSize menuBarItemSize(const QSize &contents);
