#pragma once

#include <QStringList>
#include <vector>

struct ShortcutItem {
    /// Pieces joined by " + ".
    QString keys;
    QString description;
};

struct ShortcutSection {
    QString title;
    /// Name of a symbol.
    QString icon;
    std::vector<ShortcutItem> items;
};

/// What the sheet of keyboard shortcuts lists.
const std::vector<ShortcutSection> &keyboardShortcutSections();

/// The caps of the keys: a piece each, known names as their glyphs.
QStringList keyCaps(const QString &keys);
