#pragma once

#include <QColor>
#include <QString>

/// The colours of one theme, by the role that each plays on a screen.
struct ThemeDefinition {
    /// Stored in the defaults store and on the server.
    QString id;
    /// Shown in the picker.
    QString name;
    bool isDark = false;
    QColor primary, primaryLight, primaryDark;
    /// Page background, raised surfaces, hovered rows, selected rows.
    QColor bg, bgWhite, bgHover, bgActive;
    /// From the strongest to the faintest.
    QColor text, textSecondary, textLight;
    QColor border, borderLight;
    /// The picker's swatch, as "#rrggbb".
    QString previewColor;

    bool operator==(const ThemeDefinition &) const = default;

    /// The theme with a background and fonts of its own.
    bool isSpace() const { return id == QLatin1StringView("space"); }
    /// What is drawn on `primary`: button labels, own chat bubbles.
    QColor textOnPrimary() const { return isSpace() ? QColor(0x08, 0x0e, 0x1c) : QColor(Qt::white); }
};
