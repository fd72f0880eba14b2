#pragma once

#include "app/AppState.h"
#include "mail/FocusedActions.h"

#include <QKeySequence>

enum class MacMenu { application, file, edit, mailbox, message, tools, help };

/// One entry of the menu bar. Its title may hold "&" for nothing but itself.
struct MacMailCommand {
    MacMenu menu;
    QString title;
    /// The first one is shown beside the title; none for an entry without.
    QList<QKeySequence> keys;
    std::function<bool()> isEnabled;
    std::function<void()> perform;
    bool startsGroup = false;
    /// Present for administrators only.
    bool isForAdministrators = false;
};

/// The commands of a window's menu bar. Each one acts on what the screens of that window offer, or opens the main
/// window and leaves a request in `AppState`. Main thread only.
class MacMailCommands {
public:
    MacMailCommands(std::shared_ptr<AppState> appState, const FocusedActions &focused,
                    std::function<void()> openMainWindow);
    MacMailCommands(const MacMailCommands &) = delete;
    MacMailCommands &operator=(const MacMailCommands &) = delete;

    /// In the order of the menus.
    const std::vector<MacMailCommand> &commands() const { return m_commands; }
    bool isAdministrator() const;

private:
    using Condition = bool (MacMailCommands::*)() const;
    using Target = void (MacMailCommands::*)(MacMailAction) const;

    MacMailCommand &add(MacMenu menu, const QString &title, QList<QKeySequence> keys, Condition condition,
                        std::function<void()> perform);
    MacMailCommand &addAction(MacMenu menu, const QString &title, QList<QKeySequence> keys, Condition condition,
                              Target target, MacMailAction action);
    MacMailCommand &addDestination(const QString &title, AppDestination destination, QList<QKeySequence> keys = {});
    void addFolder(const QString &title, int digit, const QString &path);
    void addApplicationAndFile();
    void addMailbox();
    void addMessage();
    void addTools();

    bool always() const { return true; }
    bool signedIn() const;
    bool isFree() const;
    bool composing() const;
    bool canSend() const;
    bool canBeginMessage() const;
    bool mailboxReady() const;
    bool messageReady() const;
    bool hasAttachments() const;
    bool selectionReady() const;

    void toMailbox(MacMailAction action) const;
    void toMessage(MacMailAction action) const;
    /// To the list when it has a selection, else to the opened message.
    void toSelection(MacMailAction action) const;
    void beginMessage() const;
    void showShortcuts() const;
    void open(AppDestination destination) const;
    void goTo(const QString &folderPath) const;

    std::shared_ptr<AppState> m_appState;
    const FocusedActions &m_focused;
    std::function<void()> m_openMainWindow;
    std::vector<MacMailCommand> m_commands;
};
