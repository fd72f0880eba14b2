#include "ui/screens/ThemePalette.h"

#include "ui/Contrast.h"
#include "ui/screens/StyleShapes.h"

QPalette themePalette(const ThemeDefinition &theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.bg);
    palette.setColor(QPalette::WindowText, theme.text);
    palette.setColor(QPalette::Base, theme.bgWhite);
    palette.setColor(QPalette::AlternateBase, theme.bgHover);
    palette.setColor(QPalette::Text, theme.text);
    palette.setColor(QPalette::BrightText, theme.text);
    palette.setColor(QPalette::PlaceholderText, placeholderColor(theme));
    palette.setColor(QPalette::Button, theme.bgWhite);
    palette.setColor(QPalette::ButtonText, theme.text);
    palette.setColor(QPalette::ToolTipBase, theme.bgWhite);
    palette.setColor(QPalette::ToolTipText, theme.text);
    palette.setColor(QPalette::Highlight, theme.primary);
    palette.setColor(QPalette::HighlightedText, theme.textOnPrimary());
    palette.setColor(QPalette::Link, accentTextColor(theme));
    palette.setColor(QPalette::LinkVisited, accentTextColor(theme));
    palette.setColor(QPalette::Light, theme.bgWhite);
    palette.setColor(QPalette::Midlight, theme.borderLight);
    palette.setColor(QPalette::Mid, theme.border);
    palette.setColor(QPalette::Dark, theme.textLight);
    palette.setColor(QPalette::Shadow, Qt::black);
    const QColor disabled = mixed(theme.textSecondary, theme.bg, 0.5);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, disabled);
    return palette;
}
