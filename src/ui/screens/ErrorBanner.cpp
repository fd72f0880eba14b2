#include "ui/screens/ErrorBanner.h"

#include "ui/Contrast.h"
#include "ui/SystemColors.h"
#include "ui/screens/AccessibleRole.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/SymbolView.h"
#include "ui/screens/ThemeLabel.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>

using namespace Qt::StringLiterals;

ErrorBanner::ErrorBanner(QWidget *parent)
    : QWidget(parent)
    , m_symbol(new SymbolView(u"exclamationmark.circle.fill"_s, 16))
    , m_text(new ThemeLabel({}, TextStyle::callout)) {
    setAccessibleRole(this, QAccessible::AlertMessage);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(12, 10, 12, 10);
    row->setSpacing(10);
    row->addWidget(m_symbol, 0, Qt::AlignTop);
    row->addWidget(m_text, 1);
    m_symbol->setColor(systemRed);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    hide();
}

void ErrorBanner::setError(const std::optional<QString> &text) {
    setVisible(text.has_value());
    if (!text || *text == m_text->text())
        return;
    m_text->setText(*text);
    setAccessibleName(*text);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void ErrorBanner::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    const QColor red = systemRed(theme);
    fillRounded(&painter, rect(), StyleMetrics::controlRadius, mixed(theme.bgWhite, red, 0.1));
    strokeRounded(&painter, rect(), StyleMetrics::controlRadius, mixed(theme.bgWhite, red, 0.35));
}
