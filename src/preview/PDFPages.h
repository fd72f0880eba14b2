#pragma once

#include "preview/Document.h"

#include <QPdfDocument>

/// A PDF file.
class PDFPages final : public Document {
public:
    explicit PDFPages(const QString &path);

    QList<QSizeF> pageSizes() override;
    QImage render(int page, const QSize &size) override;

private:
    QPdfDocument m_document;
};
