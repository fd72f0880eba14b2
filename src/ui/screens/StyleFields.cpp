#include "ui/screens/StyleFields.h"

#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QDateTimeEdit>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyle>
#include <QStyleOption>
#include <QTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal arrowSize = 12;
/// The arrows and symbols at the right of a box.
constexpr int arrowColumn = 28;

QColor textColor(const QStyleOption &option, const ThemeDefinition &theme) {
    return option.state & QStyle::State_Enabled ? theme.text : option.palette.color(QPalette::Disabled, QPalette::Text);
}

QRectF arrowRect(const QRect &rect) {
    return QRectF(rect.right() - StyleMetrics::fieldPadding - arrowSize + 1, rect.center().y() - arrowSize / 2 + 1,
                  arrowSize, arrowSize);
}

} // namespace

void paintField(QPainter *painter, const QStyleOption &option, const ThemeDefinition &theme) {
    const bool isEnabled = option.state & QStyle::State_Enabled;
    constexpr qreal radius = StyleMetrics::controlRadius;
    fillRounded(painter, option.rect, radius, isEnabled ? theme.bgWhite : theme.bg);
    if (option.state & QStyle::State_HasFocus)
        paintFocusRing(painter, option.rect, radius, theme);
    else
        strokeRounded(painter, option.rect, radius, isEnabled ? controlBorderColor(theme) : theme.border);
}

void paintComboBox(QPainter *painter, const QStyleOptionComboBox &box, const QString &symbol,
                   const ThemeDefinition &theme) {
    const bool hasRing = box.editable ? bool(box.state & QStyle::State_HasFocus) : showsFocusRing(box);
    const bool isHovered = box.state & QStyle::State_MouseOver && box.state & QStyle::State_Enabled;
    const bool isOpen = box.state & QStyle::State_On;
    constexpr qreal radius = StyleMetrics::controlRadius;
    fillRounded(painter, box.rect, radius, (isHovered || isOpen) && !box.editable ? theme.bgHover : theme.bgWhite);
    if (hasRing)
        paintFocusRing(painter, box.rect, radius, theme);
    else
        strokeRounded(painter, box.rect, radius, controlBorderColor(theme));
    paintSymbol(painter, symbol, arrowRect(box.rect),
                box.state & QStyle::State_Enabled ? theme.textSecondary : theme.textLight);
}

void paintComboBoxLabel(QPainter *painter, const QStyleOptionComboBox &box, const ThemeDefinition &theme) {
    if (box.editable)
        return;
    painter->save();
    painter->setPen(textColor(box, theme));
    QRect rect = box.rect.adjusted(StyleMetrics::fieldPadding + 2, 0, -2 * StyleMetrics::fieldPadding - 10, 0);
    if (!box.currentIcon.isNull()) {
        const QRect icon(rect.left(), rect.center().y() - box.iconSize.height() / 2 + 1, box.iconSize.width(),
                         box.iconSize.height());
        box.currentIcon.paint(painter, icon);
        rect.setLeft(icon.right() + 9);
    }
    const QString text = painter->fontMetrics().elidedText(box.currentText, Qt::ElideRight, rect.width());
    painter->drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, text);
    painter->restore();
}

void paintSpinBox(QPainter *painter, const QStyleOptionSpinBox &box, const QStyle *style, const QWidget *widget,
                  const ThemeDefinition &theme) {
    paintField(painter, box, theme);
    const auto arrow = [&](QStyle::SubControl part, const QString &symbol) {
        const QRectF rect = style->subControlRect(QStyle::CC_SpinBox, &box, part, widget);
        const bool isHovered = box.activeSubControls == part;
        constexpr qreal size = 9;
        paintSymbol(painter, symbol, {rect.center().x() - size / 2, rect.center().y() - size / 2, size, size},
                    isHovered ? theme.text : theme.textSecondary);
    };
    if (box.buttonSymbols == QAbstractSpinBox::NoButtons)
        return;
    arrow(QStyle::SC_SpinBoxUp, u"chevron.up"_s);
    arrow(QStyle::SC_SpinBoxDown, u"chevron.down"_s);
}

bool isTextArea(const QWidget *widget) {
    return qobject_cast<const QTextEdit *>(widget) || qobject_cast<const QPlainTextEdit *>(widget);
}

QString openingSymbol(const QWidget *box) {
    return qobject_cast<const QDateTimeEdit *>(box) ? u"calendar"_s : u"chevron.up.chevron.down"_s;
}

QRect fieldTextRect(const QRect &field) {
    return field.adjusted(StyleMetrics::fieldPadding - 2, 0, 2 - StyleMetrics::fieldPadding, 0);
}

QRect boxTextRect(const QRect &box) {
    return box.adjusted(StyleMetrics::fieldPadding - 2, 2, -arrowColumn, -2);
}

QSize fieldSize(const QSize &contents) {
    return {contents.width() + 2 * StyleMetrics::fieldPadding,
            std::max(contents.height() + 10, StyleMetrics::controlHeight)};
}

QSize comboBoxSize(const QSize &contents) {
    return fieldSize(contents) + QSize(arrowColumn, 0);
}

QSize spinBoxSize(const QSize &contents) {
    return {contents.width() + 2 * StyleMetrics::fieldPadding + arrowColumn,
            std::max(contents.height(), StyleMetrics::controlHeight)};
}
