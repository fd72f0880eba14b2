#include "ui/screens/SymbolView.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QPainter>

SymbolView::SymbolView(const QString &symbol, int size, QWidget *parent)
    : QWidget(parent)
    , m_symbol(symbol)
    , m_color(accentTextColor)
    , m_size(size) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbol(const QString &symbol) {
    m_symbol = symbol;
    update();
}

void SymbolView::setColor(ThemeColor color) {
    m_color = color;
    update();
}

void SymbolView::setPlate(int diameter) {
    m_plate = diameter;
    updateGeometry();
}

QSize SymbolView::sizeHint() const {
    const int edge = std::max(m_size, m_plate);
    return {edge, edge};
}

void SymbolView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    const QRectF whole = rect();
    if (m_plate > 0)
        fillRounded(&painter, whole, whole.width() / 2, theme.bgActive);
    QRectF symbol(0, 0, m_size, m_size);
    symbol.moveCenter(whole.center());
    paintSymbol(&painter, m_symbol, symbol, m_color(theme));
}
