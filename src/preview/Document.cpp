#include "preview/Document.h"

#include "preview/ImageDocument.h"
#include "preview/PDFPages.h"
#include "preview/SVGDocument.h"

std::unique_ptr<Document> openDocument(const QString &path, const QString &mime) {
    if (mime == QLatin1StringView("application/pdf"))
        return std::make_unique<PDFPages>(path);
    if (mime.startsWith(QLatin1StringView("image/svg")))
        return std::make_unique<SVGDocument>(path);
    return std::make_unique<ImageDocument>(path);
}
