#include "ui/SystemColors.h"

namespace {

QColor byScheme(const ThemeDefinition &theme, QRgb onLight, QRgb onDark) {
    return QColor(theme.isDark ? onDark : onLight);
}

} // namespace

QColor systemBlue(const ThemeDefinition &theme) {
    return byScheme(theme, 0x2563eb, 0x60a5fa);
}

QColor systemGreen(const ThemeDefinition &theme) {
    return byScheme(theme, 0x15803d, 0x4ade80);
}

QColor systemRed(const ThemeDefinition &theme) {
    return byScheme(theme, 0xdc2626, 0xf87171);
}

QColor systemOrange(const ThemeDefinition &theme) {
    return byScheme(theme, 0xc2570c, 0xfb923c);
}

QColor systemYellow(const ThemeDefinition &theme) {
    return byScheme(theme, 0xf5a700, 0xfacc15);
}
