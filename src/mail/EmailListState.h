#pragma once

#include "app/AppState.h"
#include "mail/EmailDragData.h"
#include "mail/EmailListActions.h"
#include "mail/EmailListFilters.h"
#include "mail/EmailListModel.h"
#include "mail/EmailWindowRef.h"
#include "mail/MailboxViewModel.h"
#include "platform/Tasks.h"
#include "ui/ViewTexts.h"

/// What the message list screen decides: which folder, which of its contents shows, the search as it is typed, the
/// selection and what follows from it.
class EmailListState : public ObservableObject, public std::enable_shared_from_this<EmailListState> {
    Q_OBJECT
public:
    enum class Content { rows, empty, failure, skeleton };

    static std::shared_ptr<EmailListState> make(std::shared_ptr<AppState> appState);

    const std::shared_ptr<MailboxViewModel> viewModel = std::make_shared<MailboxViewModel>();
    /// The rows of `viewModel`, changed as little as possible at each load.
    EmailListModel rows;
    const std::shared_ptr<EmailListFilters> filters = std::make_shared<EmailListFilters>(viewModel);
    const std::shared_ptr<EmailListActions> actions;

    Published<MailFolder> folder{this};
    /// The folder whose first load has ended.
    Published<std::optional<QString>> loadedFolderPath{this};
    /// The targets of the menus that move messages.
    Published<std::vector<MailFolder>> contextMenuFolders{this};
    /// The search box is to take the keyboard focus.
    Published<bool> searchFocused{this, false};

    /// Shows another folder, or takes what has changed about the present one.
    void setFolder(const MailFolder &shown);
    /// The real path that every mail operation uses.
    QString requestFolder() const;

    Content content() const;
    /// What to show in place of rows when there are none.
    ViewTexts placeholder() const;
    /// "1 message", "120 messages"; empty while nobody knows.
    QString countText() const;
    /// "1-50 of 120"; empty while nobody knows.
    QString pageText() const;
    /// Why the rows on show could not be read again.
    std::optional<QString> refreshFailure() const;
    bool isSentFolder() const;
    bool showsStars() const;

    /// The screen is gone: what still runs changes nothing more.
    void close();
    void reload();
    void nextPage();
    void previousPage();
    void setSearchQuery(const QString &text);
    /// Return in the search box: loads at once.
    void submitSearch();
    void setSelection(const std::set<qint64> &uids);
    void openInWindow(qint64 uid);
    /// The message of a row, absent when it is no longer in the list.
    std::optional<EmailSummary> email(qint64 uid) const;
    /// What is dragged with this row: all selected ones when it is one of them, in the list's order.
    std::vector<EmailDragData> dragData(qint64 uid) const;
    /// The dragged messages were dropped where they are wanted: they are no longer selected.
    void noteDropped(const std::vector<EmailDragData> &items);
    /// Does what the menu bar asks of a message list.
    void perform(MacMailAction action);

Q_SIGNALS:
    void emailWindowRequested(const EmailWindowRef &reference);

private:
    explicit EmailListState(std::shared_ptr<AppState> appState);

    bool isFavorites() const;
    void startFolder();
    QCoro::Task<> loadFolder(QString path, std::stop_token stop);
    static QCoro::Task<> searchLater(std::weak_ptr<EmailListState> screen, std::stop_token stop);
    void answerChangedFolder();
    void takeChangedFolder();
    void loadChanges();
    void answerReconnection();
    bool knowsCount() const;
    bool concerns(const std::optional<QString> &folderPath) const;
    void takeModelChange();
    void followSelection();

    std::shared_ptr<AppState> m_appState;
    QString m_lastSearch;
    /// The folder that was signalled last, for whomever it was meant.
    std::optional<QString> m_signalledFolder;
    /// The folder on show has changed and is still to be read again.
    bool m_hasChanges = false;
    /// The event stream broke off: what happened since is not known.
    bool m_missedEvents = false;
    bool m_wasConnected = false;
    /// The selection from which the message on show was taken last.
    std::set<qint64> m_followedSelection;
    TaskSlot m_folderTask, m_searchTask;
};
