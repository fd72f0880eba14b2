#include "app/screens/AppWindow.h"

#include "app/screens/MenuBar.h"
#include "ui/screens/AccessibleRole.h"

#include <QApplication>
#include <QEvent>
#include <QVBoxLayout>

void bringToFront(QWidget &window) {
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

AppWindow::AppWindow(const QString &title, std::shared_ptr<AppState> appState,
                     const std::function<void()> &openMainWindow) {
    setAccessibleRole(this, QAccessible::Window);
    setWindowTitle(title);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->setMenuBar(new MenuBar(std::move(appState), m_focusedActions, openMainWindow));
}

// The screens take back what they offer to the menus: these must still be there.
AppWindow::~AppWindow() {
    delete m_content;
}

void AppWindow::setContent(QWidget *content) {
    m_content = content;
    layout()->addWidget(content);
}

bool AppWindow::event(QEvent *event) {
    // In the next turn, when the windows have settled who is active.
    if (event->type() == QEvent::WindowActivate)
        QMetaObject::invokeMethod(this, &AppWindow::yieldToModal, Qt::QueuedConnection);
    return QWidget::event(event);
}

void AppWindow::yieldToModal() {
    for (auto *other : QApplication::topLevelWidgets())
        if (other->isVisible() && other->isModal() && other->parentWidget() && other->parentWidget()->window() == this)
            return bringToFront(*other);
}
