#include "compose/screens/FileDrag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QWidget>

namespace {

bool isFileDrag(const QEvent &event) {
    switch (event.type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return !draggedFiles(*static_cast<const QDropEvent &>(event).mimeData()).isEmpty();
    default:
        return false;
    }
}

class FileDragFilter final : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override {
        if (!isFileDrag(*event))
            return QObject::eventFilter(watched, event);
        event->ignore();
        return true;
    }
};

} // namespace

QList<QUrl> draggedFiles(const QMimeData &data) {
    auto urls = data.urls();
    urls.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    return urls;
}

void leaveFilesToScreen(QWidget *field) {
    field->installEventFilter(new FileDragFilter(field));
}
