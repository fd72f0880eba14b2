#pragma once

#include "app/MainScreenState.h"
#include "mail/SidebarModel.h"

#include <QWidget>

class SidebarList;

/// The left column of the main window: compose, the folders, and the ways to the other sections.
class SidebarView final : public QWidget {
    Q_OBJECT
public:
    SidebarView(std::shared_ptr<AppState> appState, std::shared_ptr<MainScreenState> state, QWidget *parent = nullptr);

    /// Gives the folders the keyboard focus.
    void focusFolders();

Q_SIGNALS:
    /// The keyboard is to go on in what the folder holds.
    void folderEntered();

private:
    QWidget *makeFooter();
    QWidget *makeDestinationButton(const QString &title, const QString &symbol, AppDestination destination);
    QWidget *makeAccountButton();
    void showAccountMenu(QWidget *button);
    void openDestination(AppDestination destination);
    void render();
    void selectionChanged();

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<MainScreenState> m_state;
    SidebarModel m_model;
    SidebarList *m_list;
};
