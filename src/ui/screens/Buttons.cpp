#include "ui/screens/Buttons.h"

#include "ui/Contrast.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QHelpEvent>
#include <QPainter>
#include <QShortcut>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTextDocument>
#include <QToolTip>

QString literalButtonText(QString words) {
    return words.replace(u'&', QStringLiteral("&&"));
}

QString literalToolTip(const QString &words) {
    return Qt::mightBeRichText(words) ? QStringLiteral("<span>%1</span>").arg(words.toHtmlEscaped()) : words;
}

void pressWithReturn(QAbstractButton *button) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *shortcut = new QShortcut(key, button, nullptr, nullptr, Qt::WidgetShortcut);
        QObject::connect(shortcut, &QShortcut::activated, button, &QAbstractButton::click);
    }
}

PrimaryButton::PrimaryButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent) {
    setButtonRole(this, ButtonRole::primary);
    setCursor(Qt::PointingHandCursor);
    pressWithReturn(this);
}

LinkButton::LinkButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent) {
    setButtonRole(this, ButtonRole::link);
    setCursor(Qt::PointingHandCursor);
    setAutoDefault(false);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    pressWithReturn(this);
}

QSize LinkButton::minimumSizeHint() const {
    constexpr int smallestWidth = 40;
    return {std::min(smallestWidth, sizeHint().width()), sizeHint().height()};
}

QString LinkButton::shownText() const {
    const int padding = sizeHint().width() - fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return fontMetrics().elidedText(text(), Qt::ElideRight, width() - padding, Qt::TextShowMnemonic);
}

bool LinkButton::event(QEvent *event) {
    if (event->type() != QEvent::ToolTip || shownText() == text())
        return QPushButton::event(event);
    const auto words = QString(text()).replace(QStringLiteral("&&"), QStringLiteral("&"));
    const auto help = toolTip().isEmpty() ? words : words + u'\n' + toolTip();
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), help, this);
    return true;
}

void LinkButton::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = shownText();
    painter.drawControl(QStyle::CE_PushButton, option);
}

IconButton::IconButton(const QString &symbol, const QString &help, QWidget *parent)
    : QToolButton(parent) {
    setSymbol(symbol);
    setHelp(help);
    setFocusPolicy(Qt::TabFocus);
    pressWithReturn(this);
}

void IconButton::setSymbol(const QString &symbol) {
    m_symbol = symbol;
    setIcon(symbolIcon(symbol));
}

void IconButton::setHelp(const QString &help) {
    setToolTip(literalToolTip(help));
    setAccessibleName(help);
}

Chip::Chip(const QString &symbol, const QString &text, QWidget *parent)
    : QAbstractButton(parent)
    , m_symbol(symbol) {
    setText(text);
    setCheckable(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    pressWithReturn(this);
}

QSize Chip::sizeHint() const {
    const int symbolWidth = m_symbol.isEmpty() ? 0 : 14 + 6;
    return {fontMetrics().horizontalAdvance(text()) + symbolWidth + 2 * 12, 28};
}

void Chip::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    QStyleOption option;
    option.initFrom(this);
    const QRectF frame = rect();
    const qreal radius = frame.height() / 2;
    const QColor label = isChecked() ? readableColor(theme.primary, theme.bgActive, theme.text) : theme.textSecondary;
    fillRounded(&painter, frame, radius, isChecked() ? theme.bgActive : underMouse() ? theme.bgHover : theme.bgWhite);
    if (showsFocusRing(option))
        paintFocusRing(&painter, frame, radius, theme);
    else
        strokeRounded(&painter, frame, radius, isChecked() ? label : controlBorderColor(theme));
    QRect content = rect().adjusted(12, 0, -12, 0);
    if (!m_symbol.isEmpty()) {
        paintSymbol(&painter, m_symbol, QRectF(content.left(), content.center().y() - 6, 14, 14), label);
        content.setLeft(content.left() + 20);
    }
    painter.setPen(label);
    painter.drawText(content, Qt::AlignVCenter | Qt::AlignLeft, text());
}
