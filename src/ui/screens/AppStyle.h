#pragma once

#include "ui/ThemeDefinition.h"

#include <QProxyStyle>

/// How every standard control of the program looks, drawn from the theme that `applyTheme` was given last. There are no
/// style sheets besides.
class AppStyle : public QProxyStyle {
    Q_OBJECT
public:
    /// The application's style; installed when first asked for, owned by the application.
    static AppStyle &shared();
    /// The theme that is on screen.
    static const ThemeDefinition &theme() { return shared().m_theme; }

    void setTheme(const ThemeDefinition &theme) { m_theme = theme; }

    void polish(QWidget *widget) override;
    using QProxyStyle::polish;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl subControl,
                         const QWidget *widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returnData) const override;

private:
    AppStyle();

    ThemeDefinition m_theme;
};

/// Draws the whole program in this theme from now on. Widgets learn of it by `QEvent::PaletteChange`.
void applyTheme(const ThemeDefinition &theme);
