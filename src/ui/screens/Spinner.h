#pragma once

#include <QVariantAnimation>
#include <QWidget>
#include <optional>

/// A wheel that turns for as long as something of unknown length is under way. Costs nothing while it is hidden.
class Spinner : public QWidget {
    Q_OBJECT
public:
    explicit Spinner(int size = 20, QWidget *parent = nullptr);

    /// Without one the wheel is in the theme's colour of secondary text.
    void setColor(const QColor &color);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QVariantAnimation m_turn;
    std::optional<QColor> m_color;
};
