#pragma once

#include "ui/ThemeDefinition.h"

#include <QRect>
#include <QString>

class QPainter;
class QSize;
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

/// Whether it holds several lines of text; such areas look like the boxes for one line.
bool isTextArea(const QWidget *widget);
/// The symbol at the right of a box that opens its list or its calendar.
QString openingSymbol(const QWidget *box);

/// Where the text of a box lies, without and with a symbol or arrows at its right.
QRect fieldTextRect(const QRect &field);
QRect boxTextRect(const QRect &box);
/// `contents` is the size of the text alone.
QSize fieldSize(const QSize &contents);
QSize comboBoxSize(const QSize &contents);
/// `contents` is the size of the box for the text.
QSize spinBoxSize(const QSize &contents);
