#pragma once

#include <QWidget>

/// The program's envelope on a rounded square in the theme's accent.
class BrandMark : public QWidget {
    Q_OBJECT
public:
    BrandMark(const QString &symbol, int size, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
};
