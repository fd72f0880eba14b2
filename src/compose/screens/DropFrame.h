#pragma once

#include <QWidget>

/// A frame over a screen that takes what is being dragged over it. Hidden at first; lets the mouse through.
class DropFrame final : public QWidget {
    Q_OBJECT
public:
    explicit DropFrame(QWidget *screen);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
