#pragma once

#include "ui/ThemeDefinition.h"

#include <QString>
#include <QStringList>

/// The page that shows a mail body in the colours of `theme`. `html` goes in as it is, but for its rules about colour
/// schemes. Takes its time with a large body; may run on any thread.
QString emailHTMLPage(const QString &html, const ThemeDefinition &theme, bool showImages);

/// Makes the `prefers-color-scheme` rules of a mail follow `scheme`, "dark" or "light", whatever the desktop prefers.
QString rewriteColorSchemeRules(const QString &html, const QString &scheme);

/// "#rrggbb", each component cut to an integer; black when the colour has no place in sRGB.
QString cssColor(const QColor &color);

/// Posts the height of the body, in CSS pixels, to the message handler "heightHandler" whenever it changes.
extern const QString emailHeightScript;
/// Evaluates to the height of the body, in CSS pixels.
extern const QString emailHeightExpression;
