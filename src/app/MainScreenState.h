#pragma once

#include "app/AppState.h"
#include "mail/EmailDragData.h"
#include "platform/Tasks.h"
#include "ui/ToastMessage.h"

/// Tells of a message that could not be sent, and whose screen has gone.
struct UnsentNotice {
    QUuid id;
    QString text;

    bool operator==(const UnsentNotice &) const = default;
};

/// The state of the main screen: the folder list and the folder on show. It answers the requests that other parts leave
/// in `AppState`, and the live events that concern folders.
class MainScreenState : public ObservableObject, public std::enable_shared_from_this<MainScreenState> {
    Q_OBJECT
public:
    static std::shared_ptr<MainScreenState> make(std::shared_ptr<AppState> appState);

    /// Path of the selected folder; may be that of the favourites.
    Published<std::optional<QString>> selectedFolderPath{this};

    Published<std::optional<ToastMessage>> toast{this};

    /// Oldest first.
    std::vector<UnsentNotice> unsentNotices() const;
    /// Opens the compose screen with the message, unless there is one already.
    void openUnsent(const QUuid &id);
    /// Drops the message.
    void dismissUnsent(const QUuid &id);

    /// The screen is gone: requests and events are no longer answered here, and what still runs changes nothing more.
    void close();

    /// The folder on show; absent when none is selected or the server no longer has it.
    std::optional<MailFolder> selectedFolder() const;
    void selectFolder(const QString &path);
    /// Reads the folder list and the inbox's state again. Failures leave everything as it was.
    QCoro::Task<> refresh();
    /// Whether dropping these messages on the folder would move any of them.
    bool acceptsDrop(const std::vector<EmailDragData> &items, const MailFolder &folder) const;
    /// Moves the dropped messages that lie elsewhere; a failed move does not stop the others.
    QCoro::Task<> drop(std::vector<EmailDragData> items, MailFolder folder);

Q_SIGNALS:
    /// A command led to a folder: the keyboard is to go on in its messages.
    void navigated();

private:
    explicit MainScreenState(std::shared_ptr<AppState> appState);
    void start();
    void answerRequests();
    void answerNavigation();
    void answerPendingEmail();
    void answerPendingChat();
    void answerShortcut();
    void confirmSent(const QString &account);
    void handleEvent(const QString &name, const QJsonObject &data);
    void handleFolders(const QJsonObject &data);
    void handleMailboxState(const QJsonObject &data);
    void selectFirstFolder();
    void showMail(const QString &folderPath);

    std::shared_ptr<AppState> m_appState;
    bool m_isClosed = false;
    std::optional<QString> m_answeredChat;
};
