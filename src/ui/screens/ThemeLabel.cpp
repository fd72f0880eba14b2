#include "ui/screens/ThemeLabel.h"

#include "ui/SystemColors.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleShapes.h"

#include <QEvent>

namespace {

QColor roleColor(TextRole role, const ThemeDefinition &theme) {
    switch (role) {
    case TextRole::main:
        return theme.text;
    case TextRole::secondary:
        return theme.textSecondary;
    case TextRole::faint:
        return placeholderColor(theme);
    case TextRole::accent:
        return accentTextColor(theme);
    case TextRole::error:
        return systemRed(theme);
    }
    return theme.text;
}

} // namespace

ThemeLabel::ThemeLabel(const QString &text, TextStyle style, TextRole role, QWidget *parent)
    : QLabel(text, parent)
    , m_style(style)
    , m_role(role) {
    setTextFormat(Qt::PlainText);
    applyStyle();
}

void ThemeLabel::setRole(TextRole role) {
    m_role = role;
    applyStyle();
}

void ThemeLabel::setTextStyle(TextStyle style, std::optional<QFont::Weight> weight) {
    m_style = style;
    m_weight = weight;
    applyStyle();
}

void ThemeLabel::changeEvent(QEvent *event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        applyStyle();
}

void ThemeLabel::applyStyle() {
    setFont(themeFont(m_style, m_weight));
    const QColor color = roleColor(m_role, AppStyle::theme());
    // Setting a palette is itself a change of palette.
    if (palette().color(QPalette::WindowText) == color)
        return;
    QPalette colors;
    colors.setColor(QPalette::WindowText, color);
    setPalette(colors);
}
