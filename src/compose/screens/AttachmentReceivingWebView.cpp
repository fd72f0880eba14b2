#include "compose/screens/AttachmentReceivingWebView.h"

#include <QDropEvent>
#include <QMimeData>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QList<QUrl> files(const QMimeData *data) {
    auto urls = data->urls();
    urls.removeIf([](const QUrl &url) { return !url.isLocalFile(); });
    return urls;
}

void acceptCopy(QDropEvent *event) {
    event->setDropAction(Qt::CopyAction);
    event->accept();
}

} // namespace

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
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop)
        return QWidget::eventFilter(watched, event);
    auto *drop = static_cast<QDropEvent *>(event);
    const auto urls = files(drop->mimeData());
    if (urls.isEmpty())
        return false;
    acceptCopy(drop);
    if (type == QEvent::Drop && onAttachFiles)
        onAttachFiles(urls);
    return true;
}
