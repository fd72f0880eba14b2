#pragma once

#include "app/MacMailCommands.h"

#include <QMenuBar>
#include <map>

/// The menu bar of one window: the program's commands and what every program has.
class MenuBar final : public QMenuBar {
    Q_OBJECT
public:
    /// `focused` outlives it.
    MenuBar(std::shared_ptr<AppState> appState, const FocusedActions &focused, std::function<void()> openMainWindow,
            QWidget *parent = nullptr);

private:
    void addMenus();
    void addCommands();
    QAction *addCommand(const MacMailCommand &command);
    void addPlatformCommands();
    void showAbout();
    /// Brings the entries in step with what can be done at the moment.
    void refresh();

    MacMailCommands m_commands;
    std::map<MacMenu, QMenu *> m_menus;
    /// In the order of the commands.
    std::vector<QAction *> m_actions;
};
