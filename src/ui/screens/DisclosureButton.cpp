#include "ui/screens/DisclosureButton.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Symbols.h"

#include <QStyleOptionButton>
#include <QStylePainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int chevronSize = 10;
constexpr int chevronRoom = chevronSize + 8;
constexpr int margin = 12;

} // namespace

DisclosureButton::DisclosureButton(const QString &symbol, QWidget *parent)
    : QPushButton(parent) {
    setIcon(symbolIcon(symbol));
    pressWithReturn(this);
    setExpanded(false);
}

void DisclosureButton::setExpanded(bool isExpanded) {
    m_isExpanded = isExpanded;
    setAccessibleDescription(isExpanded ? tr("Expanded") : tr("Collapsed"));
    update();
}

QSize DisclosureButton::sizeHint() const {
    return QPushButton::sizeHint() + QSize(chevronRoom, 0);
}

void DisclosureButton::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonBevel, option);
    const QRectF chevron(width() - margin - chevronSize, (height() - chevronSize) / 2.0, chevronSize, chevronSize);
    paintSymbol(&painter, m_isExpanded ? u"chevron.up"_s : u"chevron.down"_s, chevron, AppStyle::theme().textSecondary);
    option.rect.setRight(option.rect.right() - chevronRoom);
    painter.drawControl(QStyle::CE_PushButtonLabel, option);
}
