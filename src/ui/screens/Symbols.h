#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QRectF>
#include <QString>

class QPainter;

/// Symbols by the names of `symbols.txt`, such as "envelope.fill", each in one colour. They are rendered when first
/// shown and then kept. A name without a symbol draws nothing. Main thread only.
bool hasSymbol(const QString &name);

/// `size` is the edge of the square in pixels that do not depend on the screen.
QPixmap symbolPixmap(const QString &name, const QColor &color, qreal size, qreal devicePixelRatio);

/// Draws the symbol as large as fits, centred.
void paintSymbol(QPainter *painter, const QString &name, const QRectF &rect, const QColor &color);

/// An icon that follows the theme: as a pixmap (menus, item views) it is in the colour of secondary text, drawn with
/// `QIcon::paint` it is in the colour of the painter's pen. Null for an empty name.
QIcon symbolIcon(const QString &name);
