#pragma once

#include "mail/AttachmentFilePromise.h"

#include <QMouseEvent>
#include <QPixmap>
#include <QPointer>

class AttachmentDragData;
class QDrag;

/// Drags a promised file out of the program. File managers ask for the address of the file while the pointer is still
/// over them, keep it, and read the file as soon as it is dropped. So they are told at once where it will be; and when
/// the button is released over a place that takes it, the release is held back until the file has been fetched.
class AttachmentDrag final : public QObject {
    Q_OBJECT
public:
    AttachmentDrag(std::shared_ptr<AttachmentFilePromise> promise, const QPixmap &icon);
    ~AttachmentDrag() override;

    /// Returns when the drag is over, in an event loop of the platform's.
    void exec();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    enum class Stage { hovering, fetching, fetched };

    static QCoro::Task<> prepare(QPointer<AttachmentDrag> drag, QString name);
    static QCoro::Task<> fetch(QPointer<AttachmentDrag> drag, std::shared_ptr<AttachmentFilePromise> promise,
                               QString path);
    bool holdBack(QObject *watched, QEvent *release);
    void finish(bool succeeded);

    std::shared_ptr<AttachmentFilePromise> m_promise;
    QPointer<QDrag> m_drag;
    QPointer<AttachmentDragData> m_data;
    Qt::DropAction m_action = Qt::IgnoreAction;
    Stage m_stage = Stage::hovering;
    QPointer<QObject> m_releaseTarget;
    std::unique_ptr<QEvent> m_release;
};
