#pragma once

#include "ui/PaneLayout.h"

#include <QWidget>
#include <optional>

/// Between the list and the message: changes the list's width by pointer and keyboard, and keeps what was chosen.
class MacPaneDivider : public QWidget {
    Q_OBJECT
public:
    explicit MacPaneDivider(UserDefaults &defaults = UserDefaults::standard(), QWidget *parent = nullptr);

    /// The width of the list as it was chosen, which may be more than there is room for.
    double paneWidth() const { return m_paneWidth; }
    double maximum() const { return m_maximum; }
    void setMaximum(double maximum);

    void narrow();
    void widen();

Q_SIGNALS:
    void paneWidthChanged(double width);

protected:
    void enterEvent(QEnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void setPaneWidth(double width);
    void setAndStore(double width);

    UserDefaults &m_defaults;
    double m_paneWidth;
    double m_maximum = PaneLayout::listMinimum;
    /// Where the pointer went down, on the screen; absent while it is not down.
    std::optional<QPointF> m_pressedAt;
    /// The width when the drag began; absent while there is none.
    std::optional<double> m_dragStart;
};
