#include "mail/screens/AttachmentDrag.h"

#include "mail/AttachmentFileName.h"
#include "mail/AttachmentPreviewFolder.h"
#include "mail/screens/AttachmentDragData.h"
#include "platform/BackgroundWork.h"
#include "platform/Tasks.h"

#include <QDir>
#include <QDrag>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

AttachmentDrag::AttachmentDrag(std::shared_ptr<AttachmentFilePromise> promise, const QPixmap &icon)
    : m_promise(std::move(promise))
    // A redraw may take the row away during the drag: its source is what stays.
    , m_drag(new QDrag(qApp))
    , m_data(new AttachmentDragData) {
    m_drag->setMimeData(m_data);
    m_drag->setPixmap(icon);
    connect(m_drag, &QDrag::actionChanged, this, [this](Qt::DropAction action) { m_action = action; });
}

AttachmentDrag::~AttachmentDrag() {
    if (m_stage != Stage::hovering || !m_data || !m_data->url.isValid())
        return;
    const auto folder = QFileInfo(m_data->url.toLocalFile()).path();
    runInBackground([folder] { return QDir().rmdir(folder); });
}

void AttachmentDrag::exec() {
    launch(prepare(this, m_promise->fileName()));
    // The filter installed last sees events first: this one must come after that of the drag itself.
    QMetaObject::invokeMethod(
        this, [this] { qApp->installEventFilter(this); }, Qt::QueuedConnection);
    m_drag->exec(Qt::CopyAction);
}

QCoro::Task<> AttachmentDrag::prepare(QPointer<AttachmentDrag> drag, QString name) {
    try {
        const auto folder = co_await AttachmentPreviewFolder::shared().makeFolder();
        if (drag && drag->m_data)
            drag->m_data->url = QUrl::fromLocalFile(folder + u'/' + storableFileName(name));
        else
            QDir().rmdir(folder);
    } catch (const std::exception &) {
        // Without an address there is nothing that could be dropped.
        if (drag)
            QDrag::cancel();
    }
}

bool AttachmentDrag::eventFilter(QObject *watched, QEvent *event) {
    const auto type = event->type();
    if (m_stage == Stage::fetching)
        return type == QEvent::MouseMove || type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease;
    if (m_stage == Stage::hovering && type == QEvent::MouseButtonRelease)
        return holdBack(watched, event);
    return QObject::eventFilter(watched, event);
}

bool AttachmentDrag::holdBack(QObject *watched, QEvent *release) {
    if (m_action == Qt::IgnoreAction || !m_data || !m_data->url.isValid())
        return false;
    m_stage = Stage::fetching;
    m_releaseTarget = watched;
    m_release.reset(release->clone());
    launch(fetch(this, m_promise, m_data->url.toLocalFile()));
    return true;
}

QCoro::Task<> AttachmentDrag::fetch(QPointer<AttachmentDrag> drag, std::shared_ptr<AttachmentFilePromise> promise,
                                    QString path) {
    bool succeeded = false;
    try {
        co_await promise->write(path);
        succeeded = true;
    } catch (const std::exception &) {
        // The promise has told the person.
    }
    if (drag)
        drag->finish(succeeded);
}

void AttachmentDrag::finish(bool succeeded) {
    m_stage = Stage::fetched;
    if (succeeded && m_releaseTarget)
        QCoreApplication::postEvent(m_releaseTarget, m_release.release());
    else
        QDrag::cancel();
}
