#pragma once

#include "app/SharedItems.h"
#include "app/User.h"
#include "compose/ComposeRequest.h"
#include "compose/SendOutcomes.h"
#include "mail/EmailRecords.h"
#include "mail/Folders.h"
#include "net/SSEClient.h"
#include "notify/NotificationService.h"
#include "platform/ObservableObject.h"
#include "ui/ThemeManager.h"

#include <QDateTime>
#include <QJsonObject>
#include <QUuid>
#include <memory>

/// A full-screen section in place of the mail view.
enum class AppDestination {
    settings,
    admin,
    security,
    chat,
    filters,
    blocked,
    templates,
    contacts,
    aiAssistant,
    aiAutoReply,
    aiUsage,
    folderManagement,
    folderSharing
};

enum class QuickActionType { compose, inbox, messages };

struct IncomingChatMessage {
    QString fromName, fromId, text;
    QDateTime timestamp;

    bool operator==(const IncomingChatMessage &) const = default;
};

struct PendingEmail {
    qint64 uid = 0;
    QString folderPath;

    bool operator==(const PendingEmail &) const = default;
};

/// What all screens share: who is signed in, the folders and the selection, and the requests that one part of the
/// program leaves for another, which the other side reads and clears. Main thread only.
class AppState : public ObservableObject, public std::enable_shared_from_this<AppState> {
    Q_OBJECT
public:
    AppState();
    ~AppState() override;

    Published<std::optional<User>> currentUser{this};
    Published<bool> isAuthenticated{this, false};
    /// Restoration still runs.
    Published<bool> isLoading{this, true};
    Published<QString> serverURL{this};

    Published<bool> showCompose{this, false};
    Published<QUuid> composePresentationID{this, QUuid::createUuid()};
    Published<std::optional<EmailDetail>> composeReplyTo{this};
    Published<bool> composeReplyAll{this, false};
    Published<std::optional<EmailDetail>> composeForward{this};
    /// A message to open again.
    Published<std::shared_ptr<ComposeViewModel>> composeUnsent{this};
    SendOutcomes sendOutcomes;

    ThemeManager themeManager;
    SSEClient sseClient;
    NotificationService &notificationService = NotificationService::shared();

    Published<std::vector<MailFolder>> folders{this};
    Published<std::optional<MailFolder>> selectedFolder{this};
    Published<std::optional<qint64>> selectedEmailUID{this};
    Published<std::optional<AppDestination>> navigationDestination{this};

    Published<std::optional<IncomingChatMessage>> incomingChatMessage{this};
    Published<bool> showChatBubble{this, false};

    Published<std::optional<PendingEmail>> pendingOpenEmail{this};
    Published<std::optional<QString>> pendingOpenChat{this};
    Published<std::optional<QuickActionType>> pendingShortcutAction{this};
    Published<std::optional<QString>> emailsChangedInFolder{this};
    Published<std::vector<SharedAttachment>> sharedAttachments{this};
    Published<QString> sharedBody{this};
    Published<QString> mailtoTo{this}, mailtoSubject{this}, mailtoCc{this}, mailtoBcc{this}, mailtoBody{this};
    Published<std::optional<QString>> navigateToFolder{this};
    Published<bool> showKeyboardShortcuts{this, false};

    QString junkFolderPath() const;
    QString archiveFolderPath() const;
    QString trashFolderPath() const;

    /// Names the signed-in account among all accounts of all servers; empty when nobody is signed in.
    QString account() const;

    /// Opens a new compose screen.
    void presentCompose();
    /// Takes out what the new compose screen is to begin with.
    ComposeRequest takeComposeRequest();

    /// Asks the server who is signed in; runs once per process, later calls do nothing.
    void restoreSession();
    void didSignIn(const User &user);
    QCoro::Task<> signOut();
    /// Takes one live event. An unknown name or a malformed event changes nothing.
    void handleEvent(const QString &name, const QJsonObject &data);

    /// Whether the program is in front; the desktop says so.
    bool isActive = false;
    /// Whether a check may raise notifications now: always in the background, in front only if the person wants it.
    bool deliversNotifications() const;

private:
    QCoro::Task<> restore();
    void enterSignedInState(const User &user);
    void dropComposeRequests();
    void startCheck(bool deliver);
    void handleMailboxState(const QJsonObject &data);
    void handleEmailsChanged(const QJsonObject &data);
    void signalChangedFolder(const QString &folder);
    void handleNewEmails(const QJsonObject &data);
    void handleChatMessage(const QJsonObject &data);
    QString folderPath(FolderRole role, const QString &fallback) const;

    bool m_restorationStarted = false;
    ScheduledWorkPtr m_bubbleEnd;
};
