#include "ui/screens/ToastView.h"

#include "ui/SystemColors.h"
#include "ui/screens/AccessibleRole.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Compositing.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeColor.h"

#include <QBitmap>
#include <QPainter>
#include <QRegion>

using namespace Qt::StringLiterals;

namespace {

constexpr int bottomDistance = 32;
constexpr int paddingAcross = 16;
constexpr int paddingDown = 12;
constexpr qreal cornerRadius = 10;
constexpr int symbolSize = 16;
constexpr int symbolGap = 10;
constexpr int shadowRadius = 10;
constexpr int shadowOffset = 5;
constexpr int shadowRoom = shadowRadius + shadowOffset;
constexpr int rise = 12;
constexpr int widestText = 480;

struct ToastLook {
    QString symbol;
    ThemeColor color;
};

ToastLook lookOf(ToastType type) {
    switch (type) {
    case ToastType::info:
        return {u"info.circle.fill"_s, systemBlue};
    case ToastType::success:
        return {u"checkmark.circle.fill"_s, systemGreen};
    case ToastType::error:
        return {u"exclamationmark.circle.fill"_s, systemRed};
    case ToastType::warning:
        return {u"exclamationmark.triangle.fill"_s, systemOrange};
    }
    return {};
}

QRegion roundedRegion(const QRect &rect) {
    QBitmap mask(rect.size());
    mask.fill(Qt::color0);
    QPainter painter(&mask);
    painter.setBrush(Qt::color1);
    painter.setPen(Qt::NoPen);
    painter.drawRoundedRect(QRect({}, rect.size()), cornerRadius, cornerRadius);
    painter.end();
    return QRegion(mask).translated(rect.topLeft());
}

} // namespace

ToastView::ToastView(QWidget *host)
    : QWidget(host, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::NoDropShadowWindowHint)
    , m_host(host) {
    setAccessibleRole(this, QAccessible::AlertMessage);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFont(themeFont(TextStyle::body));
    m_presence.setStartValue(0.0);
    m_presence.setEndValue(1.0);
    m_presence.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_presence, &QVariantAnimation::valueChanged, this, qOverload<>(&QWidget::update));
    connect(&m_presence, &QVariantAnimation::finished, this, [this] {
        if (m_vanishing)
            hide();
    });
}

void ToastView::setMessage(const ToastMessage &message) {
    m_message = message;
    m_isComposited = isComposited();
    setFont(themeFont(TextStyle::body));
    setAccessibleName(message.message);
    follow();
    update();
}

void ToastView::appear() {
    m_vanishing = false;
    m_presence.stop();
    m_presence.setDirection(QAbstractAnimation::Forward);
    m_presence.setDuration(200);
    follow();
    show();
    m_presence.start();
}

void ToastView::vanish() {
    m_vanishing = true;
    m_presence.stop();
    m_presence.setDirection(QAbstractAnimation::Backward);
    m_presence.setDuration(150);
    m_presence.start();
}

void ToastView::follow() {
    resize(sizeHint());
    const QPoint bottom = m_host->mapToGlobal(QPoint(m_host->width() / 2, m_host->height() - bottomDistance));
    move(bottom - QPoint(width() / 2, height() - shadowRoom));
    if (m_isComposited)
        clearMask();
    else
        setMask(roundedRegion(card().toRect()));
}

QSize ToastView::sizeHint() const {
    const int limit = std::min(widestText, m_host->width() - 2 * paddingAcross - symbolSize - symbolGap - 32);
    const QRect text =
        fontMetrics().boundingRect(QRect(0, 0, std::max(limit, 80), 1000), Qt::TextWordWrap, m_message.message);
    const QSize content(text.width() + symbolSize + symbolGap, std::max(text.height(), symbolSize));
    return content.grownBy({paddingAcross, paddingDown, paddingAcross, paddingDown})
        .grownBy({shadowRoom, shadowRoom, shadowRoom, shadowRoom});
}

QRectF ToastView::card() const {
    return rect().adjusted(shadowRoom, shadowRoom, -shadowRoom, -shadowRoom);
}

void ToastView::paintShadow(QPainter &painter) const {
    // Many faint rims add up to one soft edge.
    constexpr double strength = 0.1;
    for (int step = 0; step < shadowRadius; ++step) {
        const QColor rim(0, 0, 0, qRound(255 * strength / shadowRadius));
        const qreal spread = shadowRadius - step - shadowRadius / 2.0;
        fillRounded(&painter, card().translated(0, shadowOffset).adjusted(-spread, -spread, spread, spread),
                    cornerRadius + spread, rim);
    }
}

void ToastView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    const auto look = lookOf(m_message.type);
    const double presence = m_presence.currentValue().toDouble();
    if (m_isComposited) {
        painter.setOpacity(presence);
        painter.translate(0, m_vanishing ? 0 : (1 - presence) * rise);
        paintShadow(painter);
    }
    // A mask has hard edges, and what lies inside of them must be covered.
    fillRounded(&painter, card(), m_isComposited ? cornerRadius : 0, theme.bgWhite);
    strokeRounded(&painter, card(), cornerRadius, theme.border);
    const QRectF content = card().adjusted(paddingAcross, paddingDown, -paddingAcross, -paddingDown);
    const qreal symbolTop = content.top() + (fontMetrics().height() - symbolSize) / 2.0;
    paintSymbol(&painter, look.symbol, {content.left(), symbolTop, symbolSize, symbolSize}, look.color(theme));
    painter.setPen(theme.text);
    painter.drawText(content.adjusted(symbolSize + symbolGap, 0, 0, 0), Qt::AlignVCenter | Qt::TextWordWrap,
                     m_message.message);
}
