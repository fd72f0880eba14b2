#include "mail/screens/FaviconAvatarView.h"

#include "mail/FaviconStore.h"
#include "ui/screens/AccessibleRole.h"
#include "ui/screens/AvatarView.h"

#include <QPainter>
#include <QPainterPath>

namespace {

/// The radius of the corners as a part of the size.
constexpr qreal corner = 0.22;

void paintIcon(QPainter *painter, const QRectF &rect, const QImage &icon) {
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    QPainterPath shape;
    shape.addRoundedRect(rect, corner * rect.width(), corner * rect.height());
    painter->setClipPath(shape, Qt::IntersectClip);
    painter->drawImage(rect, icon);
    painter->restore();
}

} // namespace

void paintFaviconAvatar(QPainter *painter, const QRectF &rect, const QString &domain, const QString &name,
                        const QColor &color) {
    const auto icon = FaviconStore::shared().icon(domain);
    if (icon.isNull())
        paintAvatar(painter, rect, name, color);
    else
        paintIcon(painter, rect, icon);
}

FaviconAvatarView::FaviconAvatarView(double size, QWidget *parent)
    : QWidget(parent) {
    setAccessibleRole(this, QAccessible::Graphic);
    setFixedSize(qRound(size), qRound(size));
    connect(&FaviconStore::shared(), &FaviconStore::iconLoaded, this, [this](const QString &domain) {
        if (domain == m_domain)
            update();
    });
}

void FaviconAvatarView::setPerson(const QString &domain, const QString &name) {
    m_domain = domain;
    m_name = name;
    setAccessibleName(name);
    update();
}

void FaviconAvatarView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    paintFaviconAvatar(&painter, rect(), m_domain, m_name);
}
