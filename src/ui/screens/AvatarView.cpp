#include "ui/screens/AvatarView.h"

#include "ui/Avatar.h"
#include "ui/HexColor.h"
#include "ui/screens/AccessibleRole.h"
#include "ui/screens/Fonts.h"

#include <QPainter>
#include <QPainterPath>

namespace {

void paintPicture(QPainter *painter, const QRectF &rect, const QImage &image) {
    QPainterPath circle;
    circle.addEllipse(rect);
    painter->setClipPath(circle, Qt::IntersectClip);
    // The picture fills the circle; what does not fit is cut off evenly.
    const QSizeF covered = rect.size().scaled(image.size(), Qt::KeepAspectRatio);
    const QRectF source(QPointF(image.width() - covered.width(), image.height() - covered.height()) / 2, covered);
    painter->drawImage(rect, image, source);
}

void paintInitials(QPainter *painter, const QRectF &rect, const QString &name, const QColor &color) {
    painter->setPen(Qt::NoPen);
    painter->setBrush(color.isValid() ? color : colorFromHex(avatarColorForName(name)));
    painter->drawEllipse(rect);
    painter->setPen(Qt::white);
    painter->setFont(themeFont(rect.width() * 0.38, QFont::DemiBold));
    painter->drawText(rect, Qt::AlignCenter, avatarInitials(name));
}

} // namespace

void paintAvatar(QPainter *painter, const QRectF &rect, const QString &name, const QColor &color, const QImage &image) {
    painter->save();
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    if (image.isNull())
        paintInitials(painter, rect, name, color);
    else
        paintPicture(painter, rect, image);
    painter->restore();
}

AvatarView::AvatarView(double size, QWidget *parent)
    : QWidget(parent) {
    setAccessibleRole(this, QAccessible::Graphic);
    setFixedSize(qRound(size), qRound(size));
}

void AvatarView::setPerson(const QString &name, const QString &avatarColor, const QString &avatarImage) {
    m_name = name;
    m_color = avatarColor.isEmpty() ? QColor() : colorFromHex(avatarColor);
    m_image = avatarImage.isEmpty() ? QImage() : ::avatarImage(avatarImage);
    setAccessibleName(name);
    update();
}

void AvatarView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    paintAvatar(&painter, rect(), m_name, m_color, m_image);
}
