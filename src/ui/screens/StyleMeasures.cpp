#include "ui/screens/StyleMeasures.h"

#include "ui/screens/StyleFields.h"
#include "ui/screens/StyleShapes.h"

std::optional<int> styleMeasure(QStyle::PixelMetric metric, const QWidget *widget) {
    switch (metric) {
    case QStyle::PM_ScrollBarExtent:
        return 12;
    case QStyle::PM_ScrollBarSliderMin:
        return 32;
    case QStyle::PM_IndicatorWidth:
    case QStyle::PM_IndicatorHeight:
    case QStyle::PM_ExclusiveIndicatorWidth:
    case QStyle::PM_ExclusiveIndicatorHeight:
    case QStyle::PM_ButtonIconSize:
    case QStyle::PM_SmallIconSize:
    case QStyle::PM_ToolBarIconSize:
    case QStyle::PM_ListViewIconSize:
    case QStyle::PM_MenuButtonIndicator:
        return StyleMetrics::iconSize;
    case QStyle::PM_DefaultFrameWidth:
        return isTextArea(widget) ? std::optional(6) : std::nullopt;
    case QStyle::PM_FocusFrameHMargin:
    case QStyle::PM_CheckBoxLabelSpacing:
    case QStyle::PM_RadioButtonLabelSpacing:
        return 8;
    case QStyle::PM_ButtonShiftHorizontal:
    case QStyle::PM_ButtonShiftVertical:
    case QStyle::PM_MenuPanelWidth:
    case QStyle::PM_ScrollView_ScrollBarSpacing:
        return 0;
    case QStyle::PM_MenuHMargin:
    case QStyle::PM_MenuVMargin:
    case QStyle::PM_SplitterWidth:
        return 5;
    case QStyle::PM_ToolTipLabelFrameWidth:
        return 6;
    default:
        return std::nullopt;
    }
}

std::optional<int> styleChoice(QStyle::StyleHint hint) {
    switch (hint) {
    case QStyle::SH_FormLayoutLabelAlignment:
        return int(Qt::AlignLeft | Qt::AlignVCenter);
    case QStyle::SH_ComboBox_Popup:
    case QStyle::SH_EtchDisabledText:
    case QStyle::SH_UnderlineShortcut:
    case QStyle::SH_ItemView_ShowDecorationSelected:
    case QStyle::SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case QStyle::SH_Menu_MouseTracking:
    case QStyle::SH_ComboBox_ListMouseTracking:
        return 1;
    default:
        return std::nullopt;
    }
}
