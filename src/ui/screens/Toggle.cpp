#include "ui/screens/Toggle.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleIndicators.h"
#include "ui/screens/StyleShapes.h"

#include <QPainter>
#include <QStyleOptionButton>

namespace {
constexpr QSize switchSize(36, 20);
constexpr int ringRoom = 3;
} // namespace

Toggle::Toggle(const QString &text, QWidget *parent)
    : QCheckBox(text, parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_slide.setDuration(120);
    m_slide.setStartValue(0.0);
    m_slide.setEndValue(0.0);
    connect(&m_slide, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(this, &QCheckBox::toggled, this, &Toggle::slide);
}

QSize Toggle::sizeHint() const {
    const int gap = text().isEmpty() ? 0 : 16;
    return {fontMetrics().horizontalAdvance(text()) + gap + switchSize.width(),
            std::max(fontMetrics().height() + 8, StyleMetrics::controlHeight)};
}

void Toggle::slide(bool on) {
    m_slide.stop();
    m_slide.setStartValue(m_slide.endValue());
    m_slide.setEndValue(on ? 1.0 : 0.0);
    m_slide.setDuration(isVisible() ? 120 : 0);
    m_slide.start();
}

void Toggle::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    QStyleOptionButton option;
    initStyleOption(&option);
    QRectF track(width() - switchSize.width(), (height() - switchSize.height()) / 2, switchSize.width(),
                 switchSize.height());
    if (showsFocusRing(option)) {
        // The ring takes its room from the switch, which stays where it is.
        paintFocusRing(&painter, track, track.height() / 2, theme);
        track.adjust(ringRoom, ringRoom, -ringRoom, -ringRoom);
    }
    paintSwitch(&painter, track, m_slide.currentValue().toDouble(), isEnabled(), theme);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    const QRect label = rect().adjusted(0, 0, -switchSize.width() - 8, 0);
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, text());
}
