#include "preview/ImageDocument.h"

#include <QImageReader>
#include <QPainter>
#include <cmath>

namespace {

/// Pictures with more pixels are refused.
constexpr qint64 mostPixels = 100'000'000;
/// Larger ones are kept smaller than they are: it is more than any screen shows.
constexpr qint64 mostKeptPixels = 32'000'000;
/// Megabytes that decoding may take, for the whole picture at up to eight bytes a pixel.
constexpr int decodingLimit = 850;

qint64 pixels(const QSize &size) {
    return qint64(size.width()) * size.height();
}

} // namespace

ImageDocument::ImageDocument(const QString &path) {
    QImageReader::setAllocationLimit(decodingLimit);
    QImageReader reader(path);
    // What the file is called and what it is need not agree.
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    auto size = reader.size();
    if (size.isEmpty() || pixels(size) > mostPixels || reader.format() == "svg" || reader.format() == "pdf")
        return;
    if (pixels(size) > mostKeptPixels)
        reader.setScaledSize(size * std::sqrt(double(mostKeptPixels) / double(pixels(size))));
    m_image = reader.read();
    m_size = reader.transformation() & QImageIOHandler::TransformationRotate90 ? size.transposed() : size;
}

QList<QSizeF> ImageDocument::pageSizes() {
    return m_image.isNull() ? QList<QSizeF>() : QList{QSizeF(m_size)};
}

QImage ImageDocument::render(int, const QSize &size) {
    QImage page(size, QImage::Format_RGB32);
    if (page.isNull())
        return page;
    page.fill(Qt::white);
    QPainter painter(&page);
    const auto scaled =
        m_image.size() == size ? m_image : m_image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    painter.drawImage(0, 0, scaled);
    return page;
}
