#include "ui/screens/LayoutTabOrder.h"

#include <QChildEvent>
#include <QLayout>
#include <QWidget>

namespace {

void appendWidgets(const QLayout &layout, QWidgetList &widgets) {
    for (int number = 0; number < layout.count(); ++number) {
        auto *item = layout.itemAt(number);
        if (auto *widget = item->widget())
            widgets.append(widget);
        else if (const auto *inner = item->layout())
            appendWidgets(*inner, widgets);
    }
}

/// What the layout holds, in its order, and then what lies there without one.
QWidgetList partsOf(const QWidget &widget) {
    QWidgetList parts;
    if (const auto *layout = widget.layout())
        appendWidgets(*layout, parts);
    for (auto *child : widget.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (!child->isWindow() && !parts.contains(child))
            parts.append(child);
    return parts;
}

void appendTree(QWidget *widget, QWidgetList &tree) {
    tree.append(widget);
    for (auto *part : partsOf(*widget))
        appendTree(part, tree);
}

/// By itself, or for the part of it that stands for it.
bool takesTab(const QWidget *widget) {
    while (widget->focusProxy())
        widget = widget->focusProxy();
    return widget->focusPolicy() & Qt::TabFocus;
}

} // namespace

LayoutTabOrder::LayoutTabOrder(QWidget *root)
    : QObject(root)
    , m_root(root) {
    chainSoon();
}

bool LayoutTabOrder::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::ChildAdded && static_cast<QChildEvent *>(event)->child()->isWidgetType())
        chainSoon();
    return QObject::eventFilter(watched, event);
}

// When the new part is complete, and its layout has taken it.
void LayoutTabOrder::chainSoon() {
    if (!std::exchange(m_isScheduled, true))
        QMetaObject::invokeMethod(this, &LayoutTabOrder::chain, Qt::QueuedConnection);
}

void LayoutTabOrder::chain() {
    m_isScheduled = false;
    QWidgetList tree;
    appendTree(m_root, tree);
    QWidget *previous = nullptr;
    for (auto *widget : tree) {
        widget->installEventFilter(this);
        if (!takesTab(widget))
            continue;
        if (previous)
            QWidget::setTabOrder(previous, widget);
        previous = widget;
    }
}
