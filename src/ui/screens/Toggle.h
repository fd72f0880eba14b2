#pragma once

#include <QCheckBox>
#include <QVariantAnimation>

/// A choice that takes effect at once: words on the left, a switch on the right.
class Toggle : public QCheckBox {
    Q_OBJECT
public:
    explicit Toggle(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint &position) const override { return rect().contains(position); }
    void paintEvent(QPaintEvent *event) override;

private:
    void slide(bool on);

    QVariantAnimation m_slide;
};
