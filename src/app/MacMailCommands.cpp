#include "app/MacMailCommands.h"

using namespace Qt::StringLiterals;

MacMailCommands::MacMailCommands(std::shared_ptr<AppState> appState, const FocusedActions &focused,
                                 std::function<void()> openMainWindow)
    : m_appState(std::move(appState))
    , m_focused(focused)
    , m_openMainWindow(std::move(openMainWindow)) {
    addApplicationAndFile();
    add(MacMenu::edit, u"Search Mail"_s, {Qt::CTRL | Qt::ALT | Qt::Key_F, Qt::CTRL | Qt::Key_F},
        &MacMailCommands::mailboxReady, [this] { toMailbox(MacMailAction::search); });
    addMailbox();
    addMessage();
    addTools();
    add(MacMenu::help, u"Keyboard Shortcuts"_s, {Qt::CTRL | Qt::Key_Slash}, &MacMailCommands::always,
        [this] { showShortcuts(); });
}

void MacMailCommands::addApplicationAndFile() {
    using enum MacMenu;
    add(application, u"Settings…"_s, {Qt::CTRL | Qt::Key_Comma}, &MacMailCommands::signedIn,
        [this] { open(AppDestination::settings); });
    add(file, u"New Message"_s, {Qt::CTRL | Qt::Key_N}, &MacMailCommands::canBeginMessage, [this] { beginMessage(); });
    add(file, u"Show Mail"_s, {Qt::CTRL | Qt::Key_0}, &MacMailCommands::always, [this] { m_openMainWindow(); });
    add(file, u"Attach Files…"_s, {Qt::CTRL | Qt::SHIFT | Qt::Key_A}, &MacMailCommands::composing,
        [this] { m_focused.compose()->attach(); });
    add(file, u"Send Message"_s, {Qt::CTRL | Qt::SHIFT | Qt::Key_D}, &MacMailCommands::canSend,
        [this] { m_focused.compose()->send(); });
    addAction(file, u"Save All Attachments…"_s, {Qt::CTRL | Qt::ALT | Qt::Key_S}, &MacMailCommands::hasAttachments,
              &MacMailCommands::toMessage, MacMailAction::saveAttachments);
}

void MacMailCommands::addMailbox() {
    addAction(MacMenu::mailbox, u"Get New Mail"_s, {Qt::CTRL | Qt::SHIFT | Qt::Key_N, Qt::Key_F5},
              &MacMailCommands::mailboxReady, &MacMailCommands::toMailbox, MacMailAction::refresh);
    addFolder(u"Inbox"_s, 1, u"INBOX"_s);
    m_commands.back().startsGroup = true;
    addFolder(u"Sent"_s, 2, u"Sent"_s);
    addFolder(u"Drafts"_s, 3, u"Drafts"_s);
    addFolder(u"Archive"_s, 4, u"Archive"_s);
    addFolder(u"Junk"_s, 5, u"Junk"_s);
    addFolder(u"Trash"_s, 6, u"Trash"_s);
}

void MacMailCommands::addMessage() {
    const auto onMessage = [this](const QString &title, QKeyCombination keys, MacMailAction action) -> auto & {
        return addAction(MacMenu::message, title, {keys}, &MacMailCommands::messageReady, &MacMailCommands::toMessage,
                         action);
    };
    const auto onSelection = [this](const QString &title, QKeyCombination keys, MacMailAction action) -> auto & {
        return addAction(MacMenu::message, title, {keys}, &MacMailCommands::selectionReady,
                         &MacMailCommands::toSelection, action);
    };
    onMessage(u"Reply"_s, Qt::CTRL | Qt::Key_R, MacMailAction::reply);
    onMessage(u"Reply All"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_R, MacMailAction::replyAll);
    onMessage(u"Forward"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_F, MacMailAction::forward);
    onSelection(u"Mark as Read / Unread"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_U, MacMailAction::toggleRead).startsGroup =
        true;
    onSelection(u"Flag / Unflag"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_L, MacMailAction::flag);
    onSelection(u"Archive"_s, Qt::CTRL | Qt::ALT | Qt::Key_A, MacMailAction::archive);
    onSelection(u"Move to Junk / Inbox"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_J, MacMailAction::junk);
    onSelection(u"Move to Trash"_s, Qt::CTRL | Qt::Key_Backspace, MacMailAction::delete_);
    onSelection(u"Block Sender…"_s, Qt::CTRL | Qt::SHIFT | Qt::Key_B, MacMailAction::block);
    onMessage(u"View Source"_s, Qt::CTRL | Qt::ALT | Qt::Key_U, MacMailAction::source).startsGroup = true;
}

void MacMailCommands::addTools() {
    addDestination(u"Chat"_s, AppDestination::chat, {Qt::CTRL | Qt::SHIFT | Qt::Key_M});
    addDestination(u"AI Assistant"_s, AppDestination::aiAssistant);
    addDestination(u"Contacts"_s, AppDestination::contacts);
    addDestination(u"Filters"_s, AppDestination::filters);
    addDestination(u"Blocked Senders"_s, AppDestination::blocked);
    addDestination(u"Quick Reply Templates"_s, AppDestination::templates);
    addDestination(u"Folder Management"_s, AppDestination::folderManagement);
    addDestination(u"Folder Sharing"_s, AppDestination::folderSharing);
    addDestination(u"AI Auto Reply Rules"_s, AppDestination::aiAutoReply);
    addDestination(u"AI Usage"_s, AppDestination::aiUsage);
    auto &administration = addDestination(u"Administration"_s, AppDestination::admin);
    administration.startsGroup = true;
    administration.isForAdministrators = true;
    addDestination(u"Security"_s, AppDestination::security).isForAdministrators = true;
}

MacMailCommand &MacMailCommands::add(MacMenu menu, const QString &title, QList<QKeySequence> keys, Condition condition,
                                     std::function<void()> perform) {
    // What is disabled does nothing, whoever calls it.
    const auto isEnabled = [this, condition] { return (this->*condition)(); };
    const auto performIfEnabled = [isEnabled, perform = std::move(perform)] {
        if (isEnabled())
            perform();
    };
    return m_commands.emplace_back(MacMailCommand{menu, title, std::move(keys), isEnabled, performIfEnabled});
}

MacMailCommand &MacMailCommands::addAction(MacMenu menu, const QString &title, QList<QKeySequence> keys,
                                           Condition condition, Target target, MacMailAction action) {
    return add(menu, title, std::move(keys), condition, [this, target, action] { (this->*target)(action); });
}

MacMailCommand &MacMailCommands::addDestination(const QString &title, AppDestination destination,
                                                QList<QKeySequence> keys) {
    return add(MacMenu::tools, title, std::move(keys), &MacMailCommands::always,
               [this, destination] { open(destination); });
}

void MacMailCommands::addFolder(const QString &title, int digit, const QString &path) {
    add(MacMenu::mailbox, title, {QKeyCombination(Qt::CTRL, Qt::Key(Qt::Key_0 + digit))}, &MacMailCommands::always,
        [this, path] { goTo(path); });
}

bool MacMailCommands::isAdministrator() const {
    const auto &user = m_appState->currentUser.get();
    return user && user->role == u"admin"_s;
}

bool MacMailCommands::signedIn() const {
    return m_appState->isAuthenticated;
}

bool MacMailCommands::isFree() const {
    return !composing() && !m_appState->navigationDestination.get();
}

bool MacMailCommands::composing() const {
    return m_focused.compose().has_value();
}

bool MacMailCommands::canSend() const {
    return composing() && m_focused.compose()->canSend;
}

bool MacMailCommands::canBeginMessage() const {
    return signedIn() && !composing();
}

bool MacMailCommands::mailboxReady() const {
    return isFree() && m_focused.mailbox();
}

bool MacMailCommands::messageReady() const {
    return isFree() && m_focused.message();
}

bool MacMailCommands::hasAttachments() const {
    return messageReady() && m_focused.message()->hasAttachments;
}

bool MacMailCommands::selectionReady() const {
    return isFree() && ((m_focused.mailbox() && m_focused.mailbox()->selectedCount > 0) || m_focused.message());
}

void MacMailCommands::toMailbox(MacMailAction action) const {
    m_focused.mailbox()->perform(action);
}

void MacMailCommands::toMessage(MacMailAction action) const {
    m_focused.message()->perform(action);
}

void MacMailCommands::toSelection(MacMailAction action) const {
    if (m_focused.mailbox() && m_focused.mailbox()->selectedCount > 0)
        toMailbox(action);
    else
        toMessage(action);
}

void MacMailCommands::beginMessage() const {
    m_openMainWindow();
    m_appState->presentCompose();
}

void MacMailCommands::showShortcuts() const {
    m_openMainWindow();
    m_appState->showKeyboardShortcuts = true;
}

void MacMailCommands::open(AppDestination destination) const {
    if (!signedIn())
        return;
    m_openMainWindow();
    m_appState->navigationDestination = destination;
}

void MacMailCommands::goTo(const QString &folderPath) const {
    if (!signedIn())
        return;
    m_openMainWindow();
    m_appState->navigateToFolder = folderPath;
}
