#include "ui/screens/ThemePickerView.h"

#include "ui/Contrast.h"
#include "ui/HexColor.h"
#include "ui/ThemeManager.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/FlowLayout.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr int spacing = 12;
constexpr qreal swatchSize = 36;

/// White above the diagonal and black below it.
void paintAutoSwatch(QPainter &painter, const QRectF &swatch) {
    fillRounded(&painter, swatch, swatchSize / 2, QColor(Qt::white));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawChord(swatch, -135 * 16, 180 * 16);
    strokeRounded(&painter, swatch, swatchSize / 2, colorFromHex(u"#cbd5e1"));
}

void paintSwatch(QPainter &painter, const QRectF &swatch, const ThemeDefinition &theme) {
    if (theme.id == autoThemeId)
        return paintAutoSwatch(painter, swatch);
    const QColor color = colorFromHex(theme.previewColor);
    const auto &current = AppStyle::theme();
    fillRounded(&painter, swatch, swatchSize / 2, color);
    // A dark swatch on a dark surface needs an edge to be seen at all.
    if (contrastRatio(color, current.bgWhite) < 1.5)
        strokeRounded(&painter, swatch, swatchSize / 2, controlBorderColor(current));
    if (theme.isSpace())
        paintSymbol(&painter, u"sparkles"_s, swatch.adjusted(9, 9, -9, -9), theme.textOnPrimary());
}

} // namespace

ThemePickerCell::ThemePickerCell(const ThemeDefinition &theme, QWidget *parent)
    : QAbstractButton(parent)
    , m_theme(theme) {
    setText(theme.name);
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

QSize ThemePickerCell::sizeHint() const {
    return {108, 84};
}

void ThemePickerCell::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto &current = AppStyle::theme();
    QStyleOption option;
    option.initFrom(this);
    if (underMouse())
        fillRounded(&painter, rect(), StyleMetrics::controlRadius, current.bgHover);
    const QRectF swatch((width() - swatchSize) / 2, 12, swatchSize, swatchSize);
    paintSwatch(painter, swatch, m_theme);
    if (isChecked())
        strokeRounded(&painter, swatch.adjusted(-4, -4, 4, 4), swatchSize / 2 + 4, accentTextColor(current), 2);
    painter.setFont(themeFont(TextStyle::caption, isChecked() ? QFont::DemiBold : QFont::Normal));
    painter.setPen(isChecked() ? current.text : current.textSecondary);
    painter.drawText(rect().adjusted(2, 52, -2, -6), Qt::AlignCenter, text());
    if (showsFocusRing(option))
        paintFocusRing(&painter, rect(), StyleMetrics::controlRadius, current);
}

ThemePickerView::ThemePickerView(ThemeManager *themeManager, QWidget *parent)
    : QWidget(parent)
    , m_themeManager(themeManager) {
    auto *grid = new FlowLayout(spacing, this);
    for (const ThemeDefinition &theme : pickerThemes()) {
        auto *cell = new ThemePickerCell(theme);
        connect(cell, &QAbstractButton::clicked, this,
                [this, cell] { m_themeManager->setCurrentThemeId(cell->themeId()); });
        grid->addWidget(cell);
        m_cells.append(cell);
    }
    observe(themeManager, this, &ThemePickerView::render);
}

void ThemePickerView::render() {
    for (auto *cell : m_cells)
        cell->setChecked(cell->themeId() == m_themeManager->currentThemeId());
}
