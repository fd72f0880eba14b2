#include "preview/SVGDocument.h"

#include <QFile>
#include <QPainter>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 mostBytes = qint64(32) << 20;
constexpr int longestEdge = 20000;

bool loadsFromElsewhere(const QXmlStreamReader &xml) {
    if (!xml.isStartElement())
        return false;
    return std::ranges::any_of(xml.attributes(), [](const QXmlStreamAttribute &attribute) {
        return attribute.name() == "href"_L1 && !attribute.value().startsWith(u'#') &&
               !attribute.value().startsWith("data:"_L1);
    });
}

/// The drawing without document type, processing instructions and whatever refers to another file; empty when it is
/// not well-formed.
QByteArray selfContained(QIODevice *file) {
    QXmlStreamReader xml(file);
    QByteArray result;
    QXmlStreamWriter writer(&result);
    while (!xml.atEnd()) {
        xml.readNext();
        if (loadsFromElsewhere(xml))
            xml.skipCurrentElement();
        else if (!xml.isDTD() && !xml.isProcessingInstruction() && !xml.isEntityReference() && !xml.hasError())
            writer.writeCurrentToken(xml);
    }
    return xml.hasError() ? QByteArray() : result;
}

} // namespace

SVGDocument::SVGDocument(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > mostBytes)
        return;
    const auto drawing = selfContained(&file);
    if (!drawing.isEmpty())
        m_renderer.load(drawing);
}

QList<QSizeF> SVGDocument::pageSizes() {
    const QSizeF size = m_renderer.defaultSize();
    if (!m_renderer.isValid() || size.isEmpty() || std::max(size.width(), size.height()) > longestEdge)
        return {};
    return {size};
}

QImage SVGDocument::render(int, const QSize &size) {
    QImage page(size, QImage::Format_RGB32);
    if (page.isNull())
        return page;
    page.fill(Qt::white);
    QPainter painter(&page);
    m_renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
    return page;
}
