#include "app/MainScreenState.h"

#include "mail/EmailService.h"
#include "mail/FolderService.h"
#include "mail/Folders.h"
#include "platform/JSONNumber.h"

using namespace Qt::StringLiterals;

std::shared_ptr<MainScreenState> MainScreenState::make(std::shared_ptr<AppState> appState) {
    std::shared_ptr<MainScreenState> state(new MainScreenState(std::move(appState)));
    state->start();
    return state;
}

MainScreenState::MainScreenState(std::shared_ptr<AppState> appState)
    : m_appState(std::move(appState)) {}

void MainScreenState::start() {
    connect(m_appState.get(), &ObservableObject::changed, this, &MainScreenState::answerRequests);
    connect(&m_appState->sendOutcomes, &ObservableObject::changed, this, &ObservableObject::scheduleChange);
    connect(&m_appState->sendOutcomes, &SendOutcomes::messageSent, this, &MainScreenState::confirmSent);
    m_appState->sseClient.onEvent = [weak = weak_from_this()](const QString &name, const QJsonObject &data) {
        if (const auto self = weak.lock()) {
            self->m_appState->handleEvent(name, data);
            self->handleEvent(name, data);
        }
    };
    launch(refresh());
    answerRequests();
}

void MainScreenState::close() {
    m_isClosed = true;
    m_appState->disconnect(this);
    m_appState->sendOutcomes.disconnect(this);
    m_appState->sseClient.onEvent = {};
}

std::optional<MailFolder> MainScreenState::selectedFolder() const {
    return selectedFolderPath.get() ? ::selectedFolder(m_appState->folders, **selectedFolderPath) : std::nullopt;
}

void MainScreenState::selectFolder(const QString &path) {
    if (selectedFolderPath.get() == path)
        return;
    selectedFolderPath = path;
    m_appState->selectedEmailUID = std::nullopt;
    m_appState->selectedFolder = selectedFolder();
}

QCoro::Task<> MainScreenState::refresh() {
    const auto self = shared_from_this();
    try {
        const auto folders = co_await FolderService::listFolders();
        if (m_isClosed)
            co_return;
        m_appState->folders = folders;
        selectFirstFolder();
    } catch (const std::exception &) {
        // The folders on show stay.
    }
    try {
        const auto state = co_await EmailService::notificationState(u"INBOX"_s);
        if (m_isClosed)
            co_return;
        co_await m_appState->notificationService.applyMailboxState(state);
    } catch (const std::exception &) {
        // The next check brings the count.
    }
}

void MainScreenState::selectFirstFolder() {
    if (selectedFolderPath.get())
        return;
    if (const auto inbox = folderNamed(m_appState->folders, u"INBOX"_s))
        selectFolder(inbox->path);
}

bool MainScreenState::acceptsDrop(const std::vector<EmailDragData> &items, const MailFolder &folder) const {
    const auto liesElsewhere = [&](const EmailDragData &item) { return item.folder != folder.path; };
    return folder.path != favoritesFolder().path && std::any_of(items.begin(), items.end(), liesElsewhere);
}

QCoro::Task<> MainScreenState::drop(std::vector<EmailDragData> items, MailFolder folder) {
    const auto self = shared_from_this();
    if (!acceptsDrop(items, folder))
        co_return;
    std::erase_if(items, [&](const EmailDragData &item) { return item.folder == folder.path; });
    for (const auto &item : items) {
        try {
            co_await EmailService::moveEmail(item.uid, item.folder, folder.path);
        } catch (const std::exception &) {
            // The message stays where it is; the next one goes on.
        }
    }
    m_appState->emailsChangedInFolder = items.front().folder;
    co_await refresh();
}

void MainScreenState::answerRequests() {
    answerNavigation();
    answerPendingEmail();
    answerPendingChat();
    answerShortcut();
}

void MainScreenState::answerNavigation() {
    const auto wanted = m_appState->navigateToFolder.get();
    if (!wanted)
        return;
    m_appState->navigateToFolder = std::nullopt;
    const auto folder = folderNamed(m_appState->folders, *wanted);
    if (!folder)
        return;
    showMail(folder->path);
    Q_EMIT navigated();
}

void MainScreenState::showMail(const QString &folderPath) {
    m_appState->navigationDestination = std::nullopt;
    selectFolder(folderPath);
}

void MainScreenState::answerPendingEmail() {
    const auto pending = m_appState->pendingOpenEmail.get();
    if (!pending || !::selectedFolder(m_appState->folders, pending->folderPath))
        return;
    m_appState->pendingOpenEmail = std::nullopt;
    showMail(pending->folderPath);
    // In the next turn, so that the list has started its folder when the message opens.
    QMetaObject::invokeMethod(
        this, [this, uid = pending->uid] { m_appState->selectedEmailUID = uid; }, Qt::QueuedConnection);
}

void MainScreenState::answerPendingChat() {
    const auto pending = m_appState->pendingOpenChat.get();
    // The chat screen takes the id; until then it must not lead back there again and again.
    if (std::exchange(m_answeredChat, pending) != pending && pending)
        m_appState->navigationDestination = AppDestination::chat;
}

void MainScreenState::answerShortcut() {
    const auto action = m_appState->pendingShortcutAction.get();
    if (!action)
        return;
    m_appState->pendingShortcutAction = std::nullopt;
    switch (*action) {
    case QuickActionType::compose:
        return m_appState->presentCompose();
    case QuickActionType::inbox:
        m_appState->navigateToFolder = u"INBOX"_s;
        return;
    case QuickActionType::messages:
        m_appState->navigationDestination = AppDestination::chat;
        return;
    }
}

std::vector<UnsentNotice> MainScreenState::unsentNotices() const {
    std::vector<UnsentNotice> notices;
    for (const auto &message : m_appState->sendOutcomes.unsent(m_appState->account()))
        notices.push_back({message.id, u"“"_s + message.subject + u"” was not sent: "_s + message.error});
    return notices;
}

void MainScreenState::openUnsent(const QUuid &id) {
    if (m_appState->showCompose)
        return;
    m_appState->composeUnsent = m_appState->sendOutcomes.take(id);
    if (m_appState->composeUnsent.get())
        m_appState->presentCompose();
}

void MainScreenState::dismissUnsent(const QUuid &id) {
    m_appState->sendOutcomes.take(id);
}

void MainScreenState::confirmSent(const QString &account) {
    if (account == m_appState->account())
        toast = ToastMessage(u"Message sent"_s, ToastType::success);
}

void MainScreenState::handleEvent(const QString &name, const QJsonObject &data) {
    if (name == "folders_updated"_L1)
        handleFolders(data);
    else if (name == "mailbox_state"_L1)
        handleMailboxState(data);
}

void MainScreenState::handleFolders(const QJsonObject &data) {
    try {
        m_appState->folders = decodeJSON<std::vector<MailFolder>>(data.value("folders"_L1));
    } catch (const DecodingError &) {
        // A malformed list leaves the folders as they were.
    }
}

void MainScreenState::handleMailboxState(const QJsonObject &data) {
    const auto path = data.value("folder"_L1);
    auto folders = m_appState->folders.get();
    const auto folder = std::find_if(folders.begin(), folders.end(), [&](const MailFolder &candidate) {
        return path.isString() && candidate.path == path.toString();
    });
    if (folder == folders.end())
        return;
    folder->unseen = exactInteger(data.value("unseen"_L1));
    folder->total = exactInteger(data.value("total"_L1));
    m_appState->folders = folders;
}
