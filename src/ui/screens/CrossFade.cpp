#include "ui/screens/CrossFade.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>

namespace {

constexpr int duration = 200; // milliseconds

} // namespace

CrossFade::CrossFade(const QPixmap &former, QWidget *now)
    : QLabel(now) {
    setPixmap(former);
    setGeometry(now->rect());
    setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *opacity = new QGraphicsOpacityEffect(this);
    setGraphicsEffect(opacity);
    auto *fade = new QPropertyAnimation(opacity, "opacity", this);
    fade->setDuration(duration);
    fade->setStartValue(1.0);
    fade->setEndValue(0.0);
    fade->setEasingCurve(QEasingCurve::InOutQuad);
    connect(fade, &QAbstractAnimation::finished, this, &QObject::deleteLater);
    show();
    raise();
    fade->start();
}
