#pragma once

#include "ui/ThemeDefinition.h"

#include <QRectF>

class QPainter;
class QSize;
class QStyleOption;
class QStyleOptionProgressBar;
class QStyleOptionTab;

void paintCheckBox(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
void paintRadioButton(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
/// `position` runs from 0 (off) to 1 (on).
void paintSwitch(QPainter *painter, const QRectF &rect, qreal position, bool isEnabled, const ThemeDefinition &theme);
void paintProgress(QPainter *painter, const QStyleOptionProgressBar &bar, const ThemeDefinition &theme);
void paintTab(QPainter *painter, const QStyleOptionTab &tab, const ThemeDefinition &theme);
/// `contents` is the size of the text alone.
QSize tabSize(const QSize &contents);
