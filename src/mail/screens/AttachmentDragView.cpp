#include "mail/screens/AttachmentDragView.h"

#include "mail/AttachmentFilePromise.h"
#include "mail/screens/AttachmentDrag.h"
#include "mail/screens/AttachmentIcon.h"
#include "mail/screens/AttachmentRowView.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"

#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// How far the pointer may stray in a click, in pixels.
constexpr double clickRadius = 4;
constexpr int dragIconSize = 48;

} // namespace

AttachmentDragView::AttachmentDragView(const MacAttachmentRow &configuration, QWidget *parent)
    : QAbstractButton(parent)
    , m_hosting(new AttachmentRowView) {
    m_hosting->setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_hosting);
    connect(this, &QAbstractButton::clicked, this, [this] { m_configuration->open(); });
    setConfiguration(configuration);
}

void AttachmentDragView::setConfiguration(const MacAttachmentRow &configuration) {
    m_configuration = configuration;
    m_hosting->setRow(configuration);
    setToolTip(literalToolTip(u"Open "_s + configuration.filename + u" · Drag to Finder to save"_s));
    setAccessibleName(configuration.filename);
    setAccessibleDescription(u"Open attachment. Drag to Finder to save. Control-click for more actions."_s);
}

QSize AttachmentDragView::sizeHint() const {
    return m_hosting->sizeHint();
}

bool AttachmentDragView::event(QEvent *event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave)
        update();
    return QAbstractButton::event(event);
}

void AttachmentDragView::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    const auto &theme = AppStyle::theme();
    const QRectF plate = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    fillRounded(&painter, plate, StyleMetrics::controlRadius, underMouse() ? theme.bgHover : theme.bgWhite);
    strokeRounded(&painter, plate, StyleMetrics::controlRadius, theme.border);
    if (showsFocusRing(option))
        paintFocusRing(&painter, plate, StyleMetrics::controlRadius, theme);
}

void AttachmentDragView::mousePressEvent(QMouseEvent *event) {
    if (event->button() == Qt::LeftButton && event->modifiers() & Qt::ControlModifier)
        return showMenu(event->globalPosition().toPoint());
    if (event->button() != Qt::LeftButton)
        return;
    m_down = event->position();
    m_dragging = false;
}

void AttachmentDragView::mouseMoveEvent(QMouseEvent *event) {
    if (m_dragging || !m_down)
        return;
    const auto way = event->position() - *m_down;
    if (std::hypot(way.x(), way.y()) > clickRadius)
        startDrag();
}

void AttachmentDragView::mouseReleaseEvent(QMouseEvent *event) {
    if (event->button() != Qt::LeftButton || !std::exchange(m_down, std::nullopt))
        return;
    if (!m_dragging)
        m_configuration->open();
}

void AttachmentDragView::keyPressEvent(QKeyEvent *event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter && event->key() != Qt::Key_Space)
        return QAbstractButton::keyPressEvent(event);
    // A key that is held opens once.
    if (!event->isAutoRepeat())
        m_configuration->open();
}

void AttachmentDragView::contextMenuEvent(QContextMenuEvent *event) {
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    showMenu(isByKey ? mapToGlobal(rect().center()) : event->globalPos());
}

void AttachmentDragView::showMenu(const QPoint &place) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(u"Open Attachment"_s, this, m_configuration->open);
    menu->addAction(u"Save Attachment…"_s, this, m_configuration->save);
    menu->popup(place);
}

void AttachmentDragView::startDrag() {
    m_dragging = true;
    m_promise = std::make_shared<AttachmentFilePromise>(m_configuration);
    const QPointer<AttachmentDragView> self = this;
    AttachmentDrag drag(m_promise, attachmentIcon(m_configuration->mime).pixmap(dragIconSize));
    drag.exec();
    // The release of the button went to the drag, and a new message may have taken this row away.
    if (self)
        m_down.reset();
}
