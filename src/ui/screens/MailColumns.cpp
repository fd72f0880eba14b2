#include "ui/screens/MailColumns.h"

#include "ui/screens/MacPaneDivider.h"

namespace {
constexpr int usualHeight = 640;
constexpr int leastHeight = 320;
} // namespace

MailColumns::MailColumns(QWidget *list, QWidget *message, UserDefaults &defaults, QWidget *parent)
    : QWidget(parent)
    , m_list(list)
    , m_divider(new MacPaneDivider(defaults, this))
    , m_message(message) {
    // Children from left to right, which is also the order of the Tab key.
    list->setParent(this);
    m_divider->raise();
    message->setParent(this);
    setTabOrder(list, m_divider);
    setTabOrder(m_divider, message);
    connect(m_divider, &MacPaneDivider::paneWidthChanged, this, &MailColumns::arrange);
}

QSize MailColumns::sizeHint() const {
    return {int(m_divider->paneWidth() + PaneLayout::dividerWidth + PaneLayout::messageIdeal), usualHeight};
}

QSize MailColumns::minimumSizeHint() const {
    return {int(PaneLayout::listMinimum + PaneLayout::dividerWidth + PaneLayout::messageMinimum), leastHeight};
}

void MailColumns::resizeEvent(QResizeEvent *event) {
    QWidget::resizeEvent(event);
    m_divider->setMaximum(maximumListWidth(width()));
    arrange();
}

void MailColumns::arrange() {
    const int listWidth = qRound(heldListWidth(m_divider->paneWidth(), m_divider->maximum()));
    const int messageLeft = listWidth + m_divider->width();
    m_list->setGeometry(0, 0, listWidth, height());
    m_divider->setGeometry(listWidth, 0, m_divider->width(), height());
    m_message->setGeometry(messageLeft, 0, std::max(width() - messageLeft, int(PaneLayout::messageMinimum)), height());
}
