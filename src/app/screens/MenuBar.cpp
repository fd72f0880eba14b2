#include "app/screens/MenuBar.h"

#include "app/screens/EditMenu.h"
#include "app/screens/EditingKeys.h"
#include "ui/screens/Sheet.h"
#include "ui/screens/ThemeLabel.h"

#include <QCoreApplication>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

MenuBar::MenuBar(std::shared_ptr<AppState> appState, const FocusedActions &focused,
                 std::function<void()> openMainWindow, QWidget *parent)
    : QMenuBar(parent)
    , m_commands(appState, focused, std::move(openMainWindow)) {
    new EditingKeys(this);
    addMenus();
    addCommands();
    addPlatformCommands();
    connect(new QShortcut(Qt::Key_F10, this), &QShortcut::activated, this,
            [this] { setActiveAction(actions().first()); });
    connect(&focused, &ObservableObject::changed, this, &MenuBar::refresh);
    observe(appState.get(), this, &MenuBar::refresh);
}

void MenuBar::addMenus() {
    m_menus = {{MacMenu::application, new QMenu(tr("&Corvanite"), this)},
               {MacMenu::file, new QMenu(tr("&File"), this)},
               {MacMenu::edit, new EditMenu(this)},
               {MacMenu::mailbox, new QMenu(tr("Mail&box"), this)},
               {MacMenu::message, new QMenu(tr("&Message"), this)},
               {MacMenu::tools, new QMenu(tr("&Tools"), this)},
               {MacMenu::help, new QMenu(tr("&Help"), this)}};
    for (const auto &[place, menu] : m_menus)
        addMenu(menu);
    m_menus.at(MacMenu::edit)->addSeparator();
    connect(m_menus.at(MacMenu::application)->addAction(tr("About Corvanite")), &QAction::triggered, this,
            &MenuBar::showAbout);
    m_menus.at(MacMenu::application)->addSeparator();
}

void MenuBar::addCommands() {
    for (const auto &command : m_commands.commands())
        m_actions.push_back(addCommand(command));
}

QAction *MenuBar::addCommand(const MacMailCommand &command) {
    auto *menu = m_menus.at(command.menu);
    if (command.startsGroup)
        menu->addSeparator();
    auto *action = menu->addAction(command.title);
    action->setShortcuts(command.keys);
    connect(action, &QAction::triggered, this, command.perform);
    return action;
}

void MenuBar::addPlatformCommands() {
    auto *file = m_menus.at(MacMenu::file);
    file->addSeparator();
    auto *close = file->addAction(tr("Close Window"));
    close->setShortcut(QKeySequence::Close);
    connect(close, &QAction::triggered, this, [this] { window()->close(); });
    auto *application = m_menus.at(MacMenu::application);
    application->addSeparator();
    auto *quit = application->addAction(tr("Quit Corvanite"));
    quit->setShortcut(Qt::CTRL | Qt::Key_Q);
    connect(quit, &QAction::triggered, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

void MenuBar::showAbout() {
    auto *sheet = new Sheet(tr("Corvanite"), tr("Version %1").arg(QCoreApplication::applicationVersion()), window());
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->column()->addWidget(new ThemeLabel(tr("A mail client for your own webmail server.")));
    connect(sheet->addButton(tr("Close"), ButtonRole::primary), &QPushButton::clicked, sheet, &QDialog::accept);
    sheet->open();
}

void MenuBar::refresh() {
    const bool isAdministrator = m_commands.isAdministrator();
    for (std::size_t i = 0; i < m_actions.size(); ++i) {
        const auto &command = m_commands.commands()[i];
        m_actions[i]->setEnabled(command.isEnabled());
        m_actions[i]->setVisible(isAdministrator || !command.isForAdministrators);
    }
}
