#pragma once

#include <QObject>

class QKeyEvent;
class QWheelEvent;
class ScrollingColumn;

/// Takes the wheel and the keys from the web view of a message: they scroll the column, zoom, and move the page
/// sideways.
class EmailHTMLInput final : public QObject {
    Q_OBJECT

public:
    EmailHTMLInput(ScrollingColumn *column, QObject *parent);

    /// The widget that gets the input is a child of the web view, which makes a new one now and then: all are watched.
    void watch(QObject *widget);
    qreal zoom() const { return m_zoom; }
    void setZoom(qreal zoom);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void zoomChanged();
    /// By so many pixels, to the right when positive.
    void movedSideways(int distance);

private:
    bool handleWheel(QWheelEvent *event);
    bool handleKey(QKeyEvent *event);

    ScrollingColumn *const m_column;
    qreal m_zoom = 1;
};
