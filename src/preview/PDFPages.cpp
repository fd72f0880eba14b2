#include "preview/PDFPages.h"

#include "platform/PreviewProtocol.h"

#include <QElapsedTimer>
#include <QPainter>
#include <cmath>

namespace {

/// Milliseconds that asking for sizes may take; pages after that are taken to be like the last one asked.
constexpr qint64 askingTime = 2000;

/// A file may claim any size, such as one of which no picture can be made.
QSizeF believable(const QSizeF &size) {
    const bool isFinite = std::isfinite(size.width()) && std::isfinite(size.height());
    return isFinite && size.width() >= 1 && size.height() >= 1 ? size.boundedTo(QSizeF(20000, 20000)) : QSizeF();
}

} // namespace

PDFPages::PDFPages(const QString &path) {
    m_document.load(path);
}

QList<QSizeF> PDFPages::pageSizes() {
    QList<QSizeF> sizes;
    if (m_document.status() != QPdfDocument::Status::Ready)
        return sizes;
    QElapsedTimer asking;
    asking.start();
    const int count = std::min(m_document.pageCount(), PreviewProtocol::maximumPages);
    while (sizes.size() < count) {
        QSizeF size;
        if (asking.elapsed() < askingTime)
            size = believable(m_document.pagePointSize(int(sizes.size())));
        if (size.isEmpty() && sizes.isEmpty())
            return sizes;
        sizes.append(size.isEmpty() ? sizes.last() : size);
    }
    return sizes;
}

QImage PDFPages::render(int page, const QSize &size) {
    const auto drawn = m_document.render(page, size);
    if (drawn.isNull())
        return {};
    QImage paper(size, QImage::Format_RGB32);
    paper.fill(Qt::white);
    QPainter(&paper).drawImage(0, 0, drawn);
    return paper;
}
