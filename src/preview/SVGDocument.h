#pragma once

#include "preview/Document.h"

#include <QSvgRenderer>

/// A drawing in SVG, without what it would load from elsewhere.
class SVGDocument final : public Document {
public:
    explicit SVGDocument(const QString &path);

    QList<QSizeF> pageSizes() override;
    QImage render(int page, const QSize &size) override;

private:
    QSvgRenderer m_renderer;
};
