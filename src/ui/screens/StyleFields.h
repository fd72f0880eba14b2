#pragma once

#include "ui/ThemeDefinition.h"

#include <QString>

class QPainter;
class QStyle;
class QStyleOption;
class QStyleOptionComboBox;
class QStyleOptionSpinBox;
class QWidget;

/// The frame of a box that takes text; the accent surrounds it while it has the focus.
void paintField(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
/// `symbol` is the one at the right that opens the list.
void paintComboBox(QPainter *painter, const QStyleOptionComboBox &box, const QString &symbol,
                   const ThemeDefinition &theme);
void paintComboBoxLabel(QPainter *painter, const QStyleOptionComboBox &box, const ThemeDefinition &theme);
void paintSpinBox(QPainter *painter, const QStyleOptionSpinBox &box, const QStyle *style, const QWidget *widget,
                  const ThemeDefinition &theme);
