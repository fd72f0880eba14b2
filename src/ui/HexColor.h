#pragma once

#include <QColor>
#include <QStringView>

/// The sRGB colour of a text such as "#2563eb", "25e" or "802563eb" (alpha first). A text of another length is opaque
/// black; what is not a letter or digit at its ends does not count.
QColor colorFromHex(QStringView text);
