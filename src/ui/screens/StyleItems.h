#pragma once

#include "ui/ThemeDefinition.h"

#include <QRectF>

class QPainter;
class QStyleOption;
class QSize;
class QStyleOptionViewItem;

/// The background of a row: hovered, selected, with the focus ring where the keyboard is.
void paintItemBackground(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
/// A short bar in the accent at the left edge: some themes' selected rows differ little from the others.
void paintSelectionMark(QPainter *painter, const QRectF &row, const ThemeDefinition &theme);
/// The arrow that opens a row with rows below it.
void paintDisclosure(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
void paintHeaderSection(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
void paintSplitter(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme);
/// The row as the toolkit is to draw it: selected rows keep the colour of their text, for their background is pale.
QStyleOptionViewItem withRowColors(const QStyleOptionViewItem &item, const ThemeDefinition &theme);
/// `natural` is the size that the toolkit gives a row.
QSize itemSize(const QSize &natural);
