#include "app/screens/AppWindow.h"

#include "app/screens/MenuBar.h"
#include "ui/screens/AccessibleRole.h"

#include <QVBoxLayout>

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
