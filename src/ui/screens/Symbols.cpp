#include "ui/screens/Symbols.h"

#include "ui/screens/AppStyle.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>
#include <mutex>

using namespace Qt::StringLiterals;

/// The library is static: without this the linker may drop its resources. The macro works outside of namespaces only.
static void loadSymbols() {
    Q_INIT_RESOURCE(symbols);
}

namespace {

QString symbolPath(const QString &name) {
    static std::once_flag loaded;
    std::call_once(loaded, loadSymbols);
    return u":/symbols/"_s + name + u".svg"_s;
}

QPixmap render(const QString &name, const QColor &color, qreal size, qreal devicePixelRatio) {
    QPixmap pixmap((QSizeF(size, size) * devicePixelRatio).toSize());
    pixmap.fill(Qt::transparent);
    if (hasSymbol(name)) {
        QPainter painter(&pixmap);
        QSvgRenderer(symbolPath(name)).render(&painter);
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), color);
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

/// An icon keeps the name alone, so that a change of theme needs no new icons.
class SymbolIconEngine : public QIconEngine {
public:
    explicit SymbolIconEngine(QString name)
        : m_name(std::move(name)) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override {
        paintSymbol(painter, m_name, rect, painter->pen().color());
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }

    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State, qreal) override {
        const auto &theme = AppStyle::theme();
        const auto color = mode == QIcon::Disabled ? theme.textLight : theme.textSecondary;
        return symbolPixmap(m_name, color, std::min(size.width(), size.height()), 1);
    }

    QIconEngine *clone() const override { return new SymbolIconEngine(*this); }
    QString key() const override { return u"symbol"_s; }
    QString iconName() override { return m_name; }

private:
    QString m_name;
};

} // namespace

bool hasSymbol(const QString &name) {
    return !name.isEmpty() && QFile::exists(symbolPath(name));
}

QPixmap symbolPixmap(const QString &name, const QColor &color, qreal size, qreal devicePixelRatio) {
    const QString key = u"symbol %1 %2 %3 %4"_s.arg(name, color.name(QColor::HexArgb)).arg(size).arg(devicePixelRatio);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = render(name, color, size, devicePixelRatio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

void paintSymbol(QPainter *painter, const QString &name, const QRectF &rect, const QColor &color) {
    const qreal size = std::min(rect.width(), rect.height());
    const auto pixmap = symbolPixmap(name, color, size, painter->device()->devicePixelRatioF());
    painter->drawPixmap((rect.center() - QPointF(size, size) / 2).toPoint(), pixmap);
}

QIcon symbolIcon(const QString &name) {
    return name.isEmpty() ? QIcon() : QIcon(new SymbolIconEngine(name));
}
