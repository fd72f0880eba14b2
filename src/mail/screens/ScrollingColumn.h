#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

class QAbstractScrollArea;
class QEvent;
class QKeyEvent;
class QWidget;

/// Watches which part of a widget can be seen through the scroll area around it, and scrolls that area.
class ScrollingColumn final : public QObject {
    Q_OBJECT

public:
    explicit ScrollingColumn(QWidget *part);

    /// The scroll area's viewport in the part's coordinates, or the whole part where there is no scroll area.
    QRect window() const;
    /// Scrolls until `y` of the part is the first line of the window.
    void scrollTo(int y);
    /// Whether the key is one that scrolls; it has been carried out then.
    bool handleKey(const QKeyEvent *event);

    /// Scrolls by a wheel event.
    bool handleWheel(QEvent *event);

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    void windowChanged();

private:
    void findScrollArea();

    QWidget *const m_part;
    QPointer<QAbstractScrollArea> m_area;
};
