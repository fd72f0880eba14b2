#include "mail/EmailListState.h"

#include "mail/EmptyFolderTexts.h"
#include "mail/FolderService.h"
#include "mail/Folders.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr auto searchDelay = std::chrono::milliseconds(300);

} // namespace

std::shared_ptr<EmailListState> EmailListState::make(std::shared_ptr<AppState> appState) {
    std::shared_ptr<EmailListState> state(new EmailListState(std::move(appState)));
    connect(state->viewModel.get(), &ObservableObject::changed, state.get(), &EmailListState::takeModelChange);
    connect(state->filters.get(), &EmailListFilters::reloadRequested, state.get(), &EmailListState::reload);
    connect(state->m_appState.get(), &ObservableObject::changed, state.get(), &EmailListState::answerChangedFolder);
    state->m_wasConnected = state->m_appState->sseClient.isConnected;
    connect(&state->m_appState->sseClient, &ObservableObject::changed, state.get(),
            &EmailListState::answerReconnection);
    return state;
}

EmailListState::EmailListState(std::shared_ptr<AppState> appState)
    : actions(std::make_shared<EmailListActions>(appState, viewModel))
    , m_appState(std::move(appState)) {}

void EmailListState::setFolder(const MailFolder &shown) {
    const bool isOther = shown.path != folder->path;
    folder = shown;
    actions->requestFolder = requestFolder();
    if (isOther)
        startFolder();
}

bool EmailListState::isFavorites() const {
    return folder->path == favoritesFolder().path;
}

QString EmailListState::requestFolder() const {
    return ::requestFolder(folder->path);
}

bool EmailListState::isSentFolder() const {
    return folderRole(folder->type) == FolderRole::sent;
}

bool EmailListState::showsStars() const {
    return isFavorites();
}

EmailListState::Content EmailListState::content() const {
    if (!viewModel->emails->empty())
        return Content::rows;
    const bool hasEnded = loadedFolderPath.get() == folder->path && !viewModel->isLoading && !viewModel->isRefreshing;
    if (!hasEnded)
        return Content::skeleton;
    return viewModel->errorMessage.get() ? Content::failure : Content::empty;
}

ViewTexts EmailListState::placeholder() const {
    const auto error = viewModel->errorMessage.get();
    if (!error)
        return emptyFolderTexts(folder);
    return {u"exclamationmark.triangle"_s, u"Could not load emails"_s,
            error->isEmpty() ? u"An error occurred. Pull down to retry."_s : *error};
}

bool EmailListState::knowsCount() const {
    return content() == Content::rows || content() == Content::empty;
}

QString EmailListState::countText() const {
    if (!knowsCount())
        return {};
    const auto total = viewModel->totalEmails.get();
    return total == 1 ? u"1 message"_s : u"%1 messages"_s.arg(total);
}

QString EmailListState::pageText() const {
    return knowsCount() ? viewModel->pageInfoText() : QString();
}

std::optional<QString> EmailListState::refreshFailure() const {
    return content() == Content::rows ? viewModel->errorMessage.get() : std::nullopt;
}

void EmailListState::startFolder() {
    m_searchTask.cancel();
    viewModel->currentPage = 1;
    m_lastSearch.clear();
    viewModel->searchQuery = QString();
    viewModel->selectedEmails = {};
    m_followedSelection.clear();
    viewModel->clearFilters();
    loadedFolderPath = std::nullopt;
    // The first load shows what was signalled while another folder was on show.
    if (concerns(m_appState->emailsChangedInFolder))
        takeChangedFolder();
    m_hasChanges = false;
    m_folderTask.start([this](std::stop_token stop) { return loadFolder(folder->path, std::move(stop)); });
}

QCoro::Task<> EmailListState::loadFolder(QString path, std::stop_token stop) {
    const auto self = shared_from_this();
    co_await viewModel->load(requestFolder(), std::nullopt, isFavorites(), stop);
    if (stop.stop_requested())
        co_return;
    loadedFolderPath = path;
    std::vector<MailFolder> targets;
    try {
        const auto folders = co_await FolderService::cachedFolders();
        targets = folders;
    } catch (const std::exception &) {
        // The menus then offer no folder.
    }
    if (!stop.stop_requested())
        contextMenuFolders = targets;
}

void EmailListState::close() {
    m_appState->disconnect(this);
    QObject::disconnect(&m_appState->sseClient, nullptr, this, nullptr);
    m_folderTask.cancel();
    m_searchTask.cancel();
    m_hasChanges = false;
}

void EmailListState::reload() {
    if (folder->path.isEmpty())
        return;
    launch(viewModel->load(requestFolder(), std::nullopt, isFavorites()));
}

void EmailListState::nextPage() {
    launch(viewModel->nextPage(requestFolder(), isFavorites()));
}

void EmailListState::previousPage() {
    launch(viewModel->previousPage(requestFolder(), isFavorites()));
}

void EmailListState::setSearchQuery(const QString &text) {
    if (viewModel->searchQuery.get() == text)
        return;
    viewModel->searchQuery = text;
    m_searchTask.cancel();
    if (text != m_lastSearch)
        m_searchTask.start([this](std::stop_token stop) { return searchLater(weak_from_this(), std::move(stop)); });
}

// Waiting must not keep a closed screen alive.
QCoro::Task<> EmailListState::searchLater(std::weak_ptr<EmailListState> screen, std::stop_token stop) {
    co_await Clock::shared().sleep(searchDelay, stop);
    const auto self = screen.lock();
    if (!self || stop.stop_requested())
        co_return;
    self->m_lastSearch = self->viewModel->searchQuery;
    self->submitSearch();
}

void EmailListState::submitSearch() {
    viewModel->currentPage = 1;
    reload();
}

void EmailListState::setSelection(const std::set<qint64> &uids) {
    if (viewModel->selectedEmails.get() == uids)
        return;
    viewModel->selectedEmails = uids;
    followSelection();
}

void EmailListState::followSelection() {
    const auto &uids = viewModel->selectedEmails.get();
    if (std::exchange(m_followedSelection, uids) == uids)
        return;
    if (uids.size() != 1) {
        m_appState->selectedEmailUID = std::nullopt;
    } else if (m_appState->selectedEmailUID.get() != *uids.begin()) {
        m_appState->selectedEmailUID = *uids.begin();
        viewModel->markSeenLocally(*uids.begin());
    }
}

void EmailListState::openInWindow(qint64 uid) {
    Q_EMIT emailWindowRequested({uid, requestFolder()});
}

std::optional<EmailSummary> EmailListState::email(qint64 uid) const {
    const auto &emails = viewModel->emails.get();
    const auto found =
        std::find_if(emails.begin(), emails.end(), [uid](const EmailSummary &email) { return email.uid == uid; });
    return found == emails.end() ? std::nullopt : std::optional(*found);
}

std::vector<EmailDragData> EmailListState::dragData(qint64 uid) const {
    const auto &selected = viewModel->selectedEmails.get();
    if (!selected.contains(uid))
        return {{uid, requestFolder()}};
    std::vector<EmailDragData> items;
    for (const auto &email : viewModel->emails.get())
        if (selected.contains(email.uid))
            items.push_back({email.uid, requestFolder()});
    return items;
}

// Otherwise the last one to leave would be opened on its way.
void EmailListState::noteDropped(const std::vector<EmailDragData> &items) {
    auto selection = viewModel->selectedEmails.get();
    for (const auto &item : items)
        selection.erase(item.uid);
    setSelection(selection);
}

void EmailListState::perform(MacMailAction action) {
    switch (action) {
    case MacMailAction::refresh:
        return reload();
    case MacMailAction::search:
        searchFocused = true;
        return;
    case MacMailAction::archive:
        return actions->archiveSelected();
    case MacMailAction::delete_:
        return actions->deleteSelected();
    case MacMailAction::toggleRead:
        return actions->toggleReadOfSelected();
    case MacMailAction::flag:
        return actions->toggleFlagOfSelected();
    case MacMailAction::junk:
        return actions->toggleSpamOfSelected();
    case MacMailAction::block:
        actions->showBlockConfirm = true;
        return;
    default:
        // The rest belongs to the opened message.
        return;
    }
}

void EmailListState::answerChangedFolder() {
    const auto changedFolder = m_appState->emailsChangedInFolder.get();
    if (std::exchange(m_signalledFolder, changedFolder) == changedFolder || !concerns(changedFolder))
        return;
    takeChangedFolder();
    m_hasChanges = true;
    loadChanges();
}

/// Not while messages are being removed: the page could count without them already, and they would be counted twice.
void EmailListState::loadChanges() {
    if (!viewModel->isRemoving() && std::exchange(m_hasChanges, false))
        launch(viewModel->load(requestFolder(), 1, isFavorites()));
}

/// The same folder may be signalled again before the shared state has told of this.
void EmailListState::takeChangedFolder() {
    m_appState->emailsChangedInFolder = std::nullopt;
    m_signalledFolder = std::nullopt;
}

/// What the list shows may be out of date after a time without events, or may never have come.
void EmailListState::answerReconnection() {
    const bool isConnected = m_appState->sseClient.isConnected;
    const bool wasConnected = std::exchange(m_wasConnected, isConnected);
    if (wasConnected && !isConnected)
        m_missedEvents = true;
    if (!isConnected || wasConnected)
        return;
    if (std::exchange(m_missedEvents, false) || viewModel->errorMessage.get())
        reload();
}

bool EmailListState::concerns(const std::optional<QString> &folderPath) const {
    return folderPath && folderPath->toUpper() == requestFolder().toUpper();
}

void EmailListState::takeModelChange() {
    rows.setEmails(viewModel->emails, isSentFolder());
    // A reload takes rows that are gone out of the selection.
    followSelection();
    loadChanges();
    scheduleChange();
}
