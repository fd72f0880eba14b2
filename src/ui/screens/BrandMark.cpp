#include "ui/screens/BrandMark.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>

BrandMark::BrandMark(const QString &symbol, int size, QWidget *parent)
    : QWidget(parent)
    , m_symbol(symbol) {
    setFixedSize(size, size);
}

void BrandMark::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    const QRectF square = rect();
    fillRounded(&painter, square, square.width() * 0.26, theme.primary);
    const qreal inset = square.width() * 0.25;
    paintSymbol(&painter, m_symbol, square.adjusted(inset, inset, -inset, -inset), theme.textOnPrimary());
}
