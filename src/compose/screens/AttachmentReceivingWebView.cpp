#include "compose/screens/AttachmentReceivingWebView.h"

#include "compose/screens/FileDrag.h"

#include <QDropEvent>
#include <QMimeData>
#include <QVBoxLayout>

AttachmentReceivingWebView::AttachmentReceivingWebView(std::unique_ptr<WebView> webView, QWidget *parent)
    : QWidget(parent)
    , m_webView(std::move(webView)) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_webView->widget());
    m_webView->widget()->installEventFilter(this);
    setFocusProxy(m_webView->widget());
}

AttachmentReceivingWebView::~AttachmentReceivingWebView() = default;

bool AttachmentReceivingWebView::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return takeFiles(static_cast<QDropEvent *>(event));
    case QEvent::DragLeave:
        Q_EMIT filesHeld(false);
        return false;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

bool AttachmentReceivingWebView::takeFiles(QDropEvent *event) {
    const auto files = draggedFiles(*event->mimeData());
    if (files.isEmpty())
        return false;
    const bool isDropped = event->type() == QEvent::Drop;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    Q_EMIT filesHeld(!isDropped);
    if (isDropped && onAttachFiles)
        onAttachFiles(files);
    return true;
}
