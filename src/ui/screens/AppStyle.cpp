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
#include "ui/screens/StyleMenus.h"
#include "ui/screens/StyleScrollBar.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/ThemePalette.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QMenu>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSplitterHandle>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTabBar>
#include <QTextEdit>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace {

/// The arrows and symbols at the right of a box.
constexpr int arrowColumn = 28;

template <typename Option> const Option &as(const QStyleOption *option) {
    return *static_cast<const Option *>(option);
}

bool reactsToHover(const QWidget *widget) {
    return qobject_cast<const QAbstractButton *>(widget) || qobject_cast<const QComboBox *>(widget) ||
           qobject_cast<const QScrollBar *>(widget) || qobject_cast<const QTabBar *>(widget) ||
           qobject_cast<const QSplitterHandle *>(widget);
}

bool isDestructiveItem(const QStyleOption *option, const QWidget *widget) {
    const auto *menu = qobject_cast<const QMenu *>(widget);
    return menu && isDestructive(menu->actionAt(option->rect.center()));
}

int menuArrowWidth(const QStyleOption *toolButton) {
    return as<QStyleOptionToolButton>(toolButton).features & QStyleOptionToolButton::HasMenu ? 12 : 0;
}

QString openingSymbol(const QWidget *widget) {
    return qobject_cast<const QDateTimeEdit *>(widget) ? u"calendar"_s : u"chevron.up.chevron.down"_s;
}

/// Text areas look like the boxes for one line.
bool isTextArea(const QWidget *widget) {
    return qobject_cast<const QTextEdit *>(widget) || qobject_cast<const QPlainTextEdit *>(widget);
}

QRect scrollBarPart(const QStyleOptionSlider &bar, QStyle::SubControl part) {
    const bool isHorizontal = bar.orientation == Qt::Horizontal;
    const QRect handle = scrollBarHandle(bar);
    QRect rect = bar.rect;
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return handle;
    case QStyle::SC_ScrollBarGroove:
        return rect;
    case QStyle::SC_ScrollBarSubPage:
        isHorizontal ? rect.setRight(handle.left() - 1) : rect.setBottom(handle.top() - 1);
        return rect;
    case QStyle::SC_ScrollBarAddPage:
        isHorizontal ? rect.setLeft(handle.right() + 1) : rect.setTop(handle.bottom() + 1);
        return rect;
    default:
        return {};
    }
}

/// Buttons of dialogs that Return presses are primary, whoever made them.
ButtonRole roleOf(const QStyleOption *option, const QWidget *widget) {
    const auto role = buttonRole(widget);
    const bool isDefault = as<QStyleOptionButton>(option).features & QStyleOptionButton::DefaultButton;
    return role == ButtonRole::plain && isDefault ? ButtonRole::primary : role;
}

/// Selected rows keep the colour of their text: their background is pale.
QStyleOptionViewItem withRowColors(const QStyleOptionViewItem &item, const ThemeDefinition &theme) {
    QStyleOptionViewItem adjusted = item;
    adjusted.palette.setColor(QPalette::HighlightedText, theme.text);
    return adjusted;
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
        return paintButtonPanel(painter, as<QStyleOptionButton>(option), roleOf(option, widget), m_theme);
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
        return paintButtonLabel(painter, as<QStyleOptionButton>(option), roleOf(option, widget), m_theme);
    case CE_ComboBoxLabel:
        return paintComboBoxLabel(painter, as<QStyleOptionComboBox>(option), m_theme);
    case CE_MenuItem:
        return paintMenuItem(painter, as<QStyleOptionMenuItem>(option), isDestructiveItem(option, widget), m_theme);
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
        return option->rect.adjusted(StyleMetrics::fieldPadding - 2, 2, -arrowColumn, -2);
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

QRect AppStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const {
    if (element == SE_LineEditContents && as<QStyleOptionFrame>(option).lineWidth > 0)
        return option->rect.adjusted(StyleMetrics::fieldPadding - 2, 0, 2 - StyleMetrics::fieldPadding, 0);
    if (element == SE_ItemViewItemFocusRect)
        return option->rect;
    if (element == SE_ProgressBarGroove || element == SE_ProgressBarContents)
        return option->rect;
    return QProxyStyle::subElementRect(element, option, widget);
}

QSize AppStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                 const QWidget *widget) const {
    constexpr int height = StyleMetrics::controlHeight;
    switch (type) {
    case CT_PushButton: {
        const bool isLink = buttonRole(widget) == ButtonRole::link;
        const int padding = isLink ? 4 : StyleMetrics::buttonPadding;
        const int width = size.width() + 2 * padding;
        return {width, std::max(size.height() + 6, isLink ? 24 : height)};
    }
    case CT_ToolButton:
        return {std::max(size.width() + 14, height) + menuArrowWidth(option), std::max(size.height() + 10, height)};
    case CT_LineEdit:
        return {size.width() + 2 * StyleMetrics::fieldPadding, std::max(size.height() + 10, height)};
    case CT_ComboBox:
        return {size.width() + 2 * StyleMetrics::fieldPadding + 28, std::max(size.height() + 10, height)};
    case CT_SpinBox:
        return {size.width() + 2 * StyleMetrics::fieldPadding + arrowColumn, std::max(size.height(), height)};
    case CT_MenuItem:
        return menuItemSize(as<QStyleOptionMenuItem>(option), size);
    case CT_MenuBarItem:
        return {size.width() + 20, std::max(size.height() + 10, 30)};
    case CT_TabBarTab:
        return {size.width() + 8, std::max(size.height() + 4, 36)};
    case CT_ItemViewItem: {
        const QSize base = QProxyStyle::sizeFromContents(type, option, size, widget);
        return {base.width(), std::max(base.height(), 30)};
    }
    default:
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
}

int AppStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return 12;
    case PM_ScrollBarSliderMin:
        return 32;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_ButtonIconSize:
    case PM_SmallIconSize:
    case PM_ToolBarIconSize:
        return StyleMetrics::iconSize;
    case PM_ListViewIconSize:
    case PM_MenuButtonIndicator:
        return StyleMetrics::iconSize;
    case PM_DefaultFrameWidth:
        return isTextArea(widget) ? 6 : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_FocusFrameHMargin:
        return 8;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return 8;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuPanelWidth:
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return 5;
    case PM_SplitterWidth:
        return 5;
    case PM_ToolTipLabelFrameWidth:
        return 6;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int AppStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *returnData) const {
    switch (hint) {
    case SH_FormLayoutLabelAlignment:
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    case SH_ComboBox_Popup:
    case SH_EtchDisabledText:
    case SH_UnderlineShortcut:
    case SH_ItemView_ShowDecorationSelected:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_Menu_MouseTracking:
    case SH_ComboBox_ListMouseTracking:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
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
