#pragma once

#include "preview/Document.h"

/// A picture of pixels; of an animation the first frame.
class ImageDocument final : public Document {
public:
    explicit ImageDocument(const QString &path);

    QList<QSizeF> pageSizes() override;
    QImage render(int page, const QSize &size) override;

private:
    /// The picture's own size; the image may be smaller.
    QSize m_size;
    QImage m_image;
};
