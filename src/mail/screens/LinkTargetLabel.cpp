#include "mail/screens/LinkTargetLabel.h"

#include "ui/screens/AccessibleRole.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/StyleShapes.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr int distance = 8;
constexpr int paddingAcross = 8;
constexpr int paddingDown = 4;

} // namespace

LinkTargetLabel::LinkTargetLabel(QWidget *host)
    : QWidget(host) {
    setAccessibleRole(this, QAccessible::StaticText);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    host->installEventFilter(this);
    hide();
}

// Written with all its escapes: a name in foreign letters may look like that of somebody else.
void LinkTargetLabel::setTarget(const QUrl &target) {
    m_text = target.toString(QUrl::FullyEncoded);
    setAccessibleName(m_text);
    setVisible(!m_text.isEmpty());
    place();
    raise();
    update();
}

bool LinkTargetLabel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void LinkTargetLabel::place() {
    setFont(themeFont(TextStyle::footnote));
    const auto *host = parentWidget();
    const int wanted = fontMetrics().horizontalAdvance(m_text) + 2 * paddingAcross;
    const int height = fontMetrics().height() + 2 * paddingDown;
    resize(std::max(0, std::min(wanted, host->width() - 2 * distance)), height);
    move(distance, host->height() - height - distance);
}

void LinkTargetLabel::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    const auto &theme = AppStyle::theme();
    fillRounded(&painter, rect(), StyleMetrics::rowRadius, theme.bgWhite);
    strokeRounded(&painter, rect(), StyleMetrics::rowRadius, theme.border);
    const auto content = rect().adjusted(paddingAcross, 0, -paddingAcross, 0);
    painter.setPen(theme.text);
    painter.drawText(content, Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_text, Qt::ElideMiddle, content.width()));
}
