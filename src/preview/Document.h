#pragma once

#include <QImage>
#include <QList>
#include <QSizeF>
#include <memory>

/// A document that can be drawn page by page.
class Document {
public:
    virtual ~Document() = default;

    /// Empty when there is nothing to show. In pixels for images, in points for PDF.
    virtual QList<QSizeF> pageSizes() = 0;
    /// The page in exactly this many pixels, on white; null when it cannot be drawn.
    virtual QImage render(int page, const QSize &size) = 0;
};

/// Null when the file cannot be read as this content type.
std::unique_ptr<Document> openDocument(const QString &path, const QString &mime);
