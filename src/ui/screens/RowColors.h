#pragma once

#include "ui/Contrast.h"
#include "ui/ThemeDefinition.h"

#include <QStyle>

/// The colours of a list's row in its present state. All that is read stands out from the background, in every theme.
struct RowColors {
    RowColors(QStyle::State state, const ThemeDefinition &theme)
        : background(backgroundOf(state, theme))
        , text(theme.text)
        , secondary(readableColor(theme.textSecondary, background, theme.text))
        , accent(readableColor(theme.primary, background, theme.text)) {}

    QColor background, text, secondary, accent;

private:
    static QColor backgroundOf(QStyle::State state, const ThemeDefinition &theme) {
        if (state & QStyle::State_Selected)
            return mixed(theme.bgActive, theme.primary, selectionStrength);
        return state & QStyle::State_MouseOver ? theme.bgHover : theme.bg;
    }

    /// Some themes' selected rows are hardly darker than the page.
    static constexpr double selectionStrength = 0.08;
};
