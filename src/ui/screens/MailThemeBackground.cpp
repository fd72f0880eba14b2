#include "ui/screens/MailThemeBackground.h"

#include "ui/StarField.h"
#include "ui/screens/AppStyle.h"

#include <QPaintEvent>
#include <QPainter>

namespace {

QColor withOpacity(QColor color, double opacity) {
    color.setAlphaF(float(opacity));
    return color;
}

void paintGlow(QPainter &painter, const QSizeF &size) {
    const QColor glow(0x24, 0x7b, 0x9d);
    QRadialGradient gradient({0, 0}, std::max(0.8 * size.width(), 320.0));
    gradient.setColorAt(0, withOpacity(glow, 0.22));
    gradient.setColorAt(1, withOpacity(glow, 0));
    painter.fillRect(QRectF({}, size), gradient);
}

void paintStar(QPainter &painter, const Star &star, const QColor &primary) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(withOpacity(QColor(0xdc, 0xf5, 0xff), star.opacity));
    painter.drawEllipse(star.position, star.radius, star.radius);
    if (!star.hasCross)
        return;
    constexpr qreal arm = 3.5;
    painter.setPen(QPen(withOpacity(primary, 0.35), 0.6));
    painter.drawLine(star.position - QPointF(arm, 0), star.position + QPointF(arm, 0));
    painter.drawLine(star.position - QPointF(0, arm), star.position + QPointF(0, arm));
}

void paintStarField(QPainter &painter, const StarField &field, const QColor &primary) {
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Star &star : field.stars)
        paintStar(painter, star, primary);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(withOpacity(primary, 0.14), 0.7));
    painter.drawEllipse(field.orbit);
}

} // namespace

MailThemeBackground::MailThemeBackground(bool elevated, QWidget *parent)
    : QWidget(parent)
    , m_elevated(elevated) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void MailThemeBackground::paintEvent(QPaintEvent *event) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    if (theme.isSpace())
        return painter.drawPixmap(0, 0, sky(theme));
    m_sky = {};
    painter.fillRect(event->rect(), m_elevated ? theme.bgWhite : theme.bg);
}

const QPixmap &MailThemeBackground::sky(const ThemeDefinition &theme) {
    const QSize pixels = size() * devicePixelRatioF();
    if (m_sky.size() == pixels)
        return m_sky;
    m_sky = QPixmap(pixels);
    m_sky.setDevicePixelRatio(devicePixelRatioF());
    m_sky.fill(m_elevated ? theme.bgWhite : theme.bg);
    QPainter painter(&m_sky);
    paintGlow(painter, size());
    paintStarField(painter, starField(width(), height()), theme.primary);
    return m_sky;
}
