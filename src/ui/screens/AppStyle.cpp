#include "ui/screens/AppStyle.h"

#include "ui/Contrast.h"
#include "ui/SpaceFonts.h"
#include "ui/Themes.h"
#include "ui/screens/ButtonRole.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleButtons.h"
#include "ui/screens/StyleFields.h"
#include "ui/screens/StyleIndicators.h"
#include "ui/screens/StyleItems.h"
#include "ui/screens/StyleMeasures.h"
#include "ui/screens/StyleMenus.h"
#include "ui/screens/StyleScrollBar.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/ThemePalette.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QPainter>
#include <QScrollBar>
#include <QSplitterHandle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

template <typename Option> const Option &as(const QStyleOption *option) {
    return *static_cast<const Option *>(option);
}

bool reactsToHover(const QWidget *widget) {
    return qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const QScrollBar *>(widget) || qobject_cast<const QTabBar *>(widget) ||
           qobject_cast<const QSplitterHandle *>(widget);
}

} // namespace

AppStyle::AppStyle()
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
    , m_theme(resolvedTheme(u"light", ColorScheme::light)) {}

AppStyle &AppStyle::shared() {
    static AppStyle *const style = [] {
        auto *made = new AppStyle;
        QApplication::setStyle(made);
        return made;
    }();
    return *style;
}

void AppStyle::polish(QWidget *widget) {
    QProxyStyle::polish(widget);
    if (reactsToHover(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (auto *view = qobject_cast<QAbstractItemView *>(widget))
        view->viewport()->setAttribute(Qt::WA_Hover);
}

void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const {
    switch (element) {
    case PE_PanelButtonCommand:
        return paintButtonPanel(painter, as<QStyleOptionButton>(option), roleOf(as<QStyleOptionButton>(option), widget),
                                m_theme);
    case PE_FrameDefaultButton:
        return;
    case PE_PanelLineEdit:
        // A box without a frame is part of something that draws one.
        if (as<QStyleOptionFrame>(option).lineWidth > 0)
            paintField(painter, *option, m_theme);
        return;
    case PE_FrameLineEdit:
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return paintCheckBox(painter, *option, m_theme);
    case PE_IndicatorRadioButton:
        return paintRadioButton(painter, *option, m_theme);
    case PE_PanelMenu:
    case PE_PanelTipLabel:
        return paintPopupPanel(painter, *option, m_theme);
    case PE_FrameMenu:
    case PE_FrameStatusBarItem:
    case PE_FrameTabBarBase:
    case PE_PanelMenuBar:
        return;
    case PE_PanelItemViewItem:
        return paintItemBackground(painter, *option, m_theme);
    case PE_PanelItemViewRow:
        return;
    case PE_IndicatorBranch:
        if (option->state & State_Children)
            paintDisclosure(painter, *option, m_theme);
        return;
    case PE_Frame:
        if (isTextArea(widget))
            return paintField(painter, *option, m_theme);
        return strokeRounded(painter, option->rect, 0, m_theme.border);
    case PE_FrameFocusRect:
        if (showsFocusRing(*option))
            paintFocusRing(painter, option->rect, StyleMetrics::rowRadius, m_theme);
        return;
    default:
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void AppStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                           const QWidget *widget) const {
    switch (element) {
    case CE_PushButton:
        drawControl(CE_PushButtonBevel, option, painter, widget);
        return drawControl(CE_PushButtonLabel, option, painter, widget);
    case CE_PushButtonBevel:
        return drawPrimitive(PE_PanelButtonCommand, option, painter, widget);
    case CE_PushButtonLabel:
        return paintButtonLabel(painter, as<QStyleOptionButton>(option), roleOf(as<QStyleOptionButton>(option), widget),
                                m_theme);
    case CE_ComboBoxLabel:
        return paintComboBoxLabel(painter, as<QStyleOptionComboBox>(option), m_theme);
    case CE_MenuItem:
        return paintMenuItem(painter, as<QStyleOptionMenuItem>(option), isDestructiveItem(*option, widget), m_theme);
    case CE_MenuBarItem:
        painter->fillRect(option->rect, m_theme.bg);
        return paintMenuBarItem(painter, as<QStyleOptionMenuItem>(option), m_theme);
    case CE_MenuBarEmptyArea:
        return painter->fillRect(option->rect, m_theme.bg);
    case CE_ProgressBar:
        return paintProgress(painter, as<QStyleOptionProgressBar>(option), m_theme);
    case CE_TabBarTab:
        return paintTab(painter, as<QStyleOptionTab>(option), m_theme);
    case CE_Splitter:
        return paintSplitter(painter, *option, m_theme);
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        return paintHeaderSection(painter, *option, m_theme);
    case CE_ItemViewItem: {
        const auto item = withRowColors(as<QStyleOptionViewItem>(option), m_theme);
        return QProxyStyle::drawControl(element, &item, painter, widget);
    }
    default:
        return QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                  const QWidget *widget) const {
    switch (control) {
    case CC_ScrollBar:
        return paintScrollBar(painter, as<QStyleOptionSlider>(option), m_theme);
    case CC_ComboBox:
        return paintComboBox(painter, as<QStyleOptionComboBox>(option), openingSymbol(widget), m_theme);
    case CC_SpinBox:
        return paintSpinBox(painter, as<QStyleOptionSpinBox>(option), this, widget, m_theme);
    case CC_ToolButton:
        return paintToolButton(painter, as<QStyleOptionToolButton>(option), buttonRole(widget), m_theme);
    default:
        return QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

QRect AppStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl subControl,
                               const QWidget *widget) const {
    if (control == CC_ScrollBar)
        return scrollBarPart(as<QStyleOptionSlider>(option), subControl);
    if ((control == CC_SpinBox && subControl == SC_SpinBoxEditField) ||
        (control == CC_ComboBox && subControl == SC_ComboBoxEditField))
        return boxTextRect(option->rect);
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QRect AppStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const {
    switch (element) {
    case SE_LineEditContents:
        // A box without a frame is part of something that draws one.
        if (as<QStyleOptionFrame>(option).lineWidth > 0)
            return fieldTextRect(option->rect);
        break;
    case SE_ItemViewItemFocusRect:
    case SE_ProgressBarGroove:
    case SE_ProgressBarContents:
        return option->rect;
    default:
        break;
    }
    return QProxyStyle::subElementRect(element, option, widget);
}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                 const QWidget *widget) const {
    switch (type) {
    case CT_PushButton:
        return buttonSize(buttonRole(widget), size);
    case CT_ToolButton:
        return toolButtonSize(as<QStyleOptionToolButton>(option), size);
    case CT_LineEdit:
        return fieldSize(size);
    case CT_ComboBox:
        return comboBoxSize(size);
    case CT_SpinBox:
        return spinBoxSize(size);
    case CT_MenuItem:
        return menuItemSize(as<QStyleOptionMenuItem>(option), size);
    case CT_MenuBarItem:
        return menuBarItemSize(size);
    case CT_TabBarTab:
        return tabSize(size);
    case CT_ItemViewItem:
        return itemSize(QProxyStyle::sizeFromContents(type, option, size, widget));
    default:
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    const auto measure = styleMeasure(metric, widget);
    return measure ? *measure : QProxyStyle::pixelMetric(metric, option, widget);
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const {
    const auto choice = styleChoice(hint);
    return choice ? *choice : QProxyStyle::styleHint(hint, option, widget, returnData);
}

void applyTheme(const ThemeDefinition &theme) {
    AppStyle::shared().setTheme(theme);
    const QFont font = themeFont(TextStyle::body);
    if (QApplication::font() != font)
        QApplication::setFont(font);
    const QPalette palette = themePalette(theme);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}
