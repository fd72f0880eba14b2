#pragma once

#include "mail/MacAttachmentRow.h"

#include <QAbstractButton>
#include <optional>

class AttachmentFilePromise;
class AttachmentRowView;
class QMenu;

/// The row of one attachment, which takes the mouse for all of its content: a click opens, a drag brings the file out,
/// a right click shows what else there is.
class AttachmentDragView final : public QAbstractButton {
    Q_OBJECT
public:
    explicit AttachmentDragView(const MacAttachmentRow &configuration, QWidget *parent = nullptr);

    void setConfiguration(const MacAttachmentRow &configuration);
    QSize sizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void showMenu(const QPoint &place);
    void startDrag();

    AttachmentRowView *m_hosting;
    std::optional<MacAttachmentRow> m_configuration;
    /// Where the left button went down.
    std::optional<QPointF> m_down;
    bool m_dragging = false;
    /// Has the row that the last drag was started for, whatever is redrawn meanwhile.
    std::shared_ptr<AttachmentFilePromise> m_promise;
};
