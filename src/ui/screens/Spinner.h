#pragma once

#include "ui/screens/ThemeColor.h"

#include <QVariantAnimation>
#include <QWidget>

/// A wheel that turns for as long as something of unknown length is under way. Costs nothing while it is hidden.
class Spinner : public QWidget {
    Q_OBJECT
public:
    explicit Spinner(int size = 20, QWidget *parent = nullptr);

    /// Until then the wheel is in the colour of secondary text.
    void setColor(ThemeColor color);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QVariantAnimation m_turn;
    ThemeColor m_color;
};
