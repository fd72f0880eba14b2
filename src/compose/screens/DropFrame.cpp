#include "compose/screens/DropFrame.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr qreal lineWidth = 3;
constexpr int inset = 6;

} // namespace

DropFrame::DropFrame(QWidget *screen)
    : QWidget(screen) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    screen->installEventFilter(this);
    hide();
}

bool DropFrame::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize)
        setGeometry(parentWidget()->rect());
    return QWidget::eventFilter(watched, event);
}

void DropFrame::showEvent(QShowEvent *) {
    setGeometry(parentWidget()->rect());
    raise();
}

void DropFrame::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto frame = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    auto veil = AppStyle::theme().primary;
    veil.setAlphaF(0.08F);
    fillRounded(&painter, frame, StyleMetrics::cardRadius, veil);
    strokeRounded(&painter, frame, StyleMetrics::cardRadius, AppStyle::theme().primary, lineWidth);
}
