#include "ui/screens/Card.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>

Card::Card(QWidget *parent)
    : QWidget(parent)
    , m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(20, 20, 20, 20);
    m_column->setSpacing(12);
}

void Card::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    QColor surface = theme.bgWhite;
    if (theme.isSpace())
        surface.setAlphaF(0.62f);
    fillRounded(&painter, rect(), StyleMetrics::cardRadius, surface);
    strokeRounded(&painter, rect(), StyleMetrics::cardRadius, theme.border);
}

SectionHeading::SectionHeading(const QString &text, QWidget *parent)
    : ThemeLabel(text, TextStyle::headline, TextRole::main, parent) {}
