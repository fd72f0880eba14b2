#pragma once

#include "ui/screens/ThemeColor.h"

#include <QWidget>

/// A symbol, on its own or on a round plate. It says nothing to a screen reader: the words beside it do.
class SymbolView : public QWidget {
    Q_OBJECT
public:
    /// `size` is the edge of the symbol in pixels.
    SymbolView(const QString &symbol, int size, QWidget *parent = nullptr);

    void setSymbol(const QString &symbol);
    /// Until then the symbol is in the accent colour.
    void setColor(ThemeColor color);
    /// Puts the symbol on a pale disc of this diameter.
    void setPlate(int diameter);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    ThemeColor m_color;
    int m_size;
    int m_plate = 0;
};
