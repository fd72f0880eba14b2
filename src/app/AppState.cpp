#include "app/AppState.h"

#include "app/AuthRecords.h"
#include "mail/Folders.h"
#include "net/APIClient.h"
#include "net/ServerAddress.h"
#include "notify/EmailCheckCoordinator.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"

using namespace Qt::StringLiterals;

AppState::AppState() {
    serverURL = currentServerAddress();
}

AppState::~AppState() = default;

QString AppState::folderPath(FolderRole role, const QString &fallback) const {
    const auto folder = firstFolderWithRole(folders, role);
    return folder ? folder->path : fallback;
}

QString AppState::junkFolderPath() const {
    return folderPath(FolderRole::spam, u"Junk"_s);
}

QString AppState::archiveFolderPath() const {
    return folderPath(FolderRole::archive, u"Archive"_s);
}

QString AppState::trashFolderPath() const {
    return folderPath(FolderRole::trash, u"Trash"_s);
}

QString AppState::account() const {
    const auto &user = currentUser.get();
    return user ? user->_id + u' ' + serverURL.get() : QString();
}

void AppState::presentCompose() {
    composePresentationID = QUuid::createUuid();
    showCompose = true;
}

ComposeRequest AppState::takeComposeRequest() {
    const ComposeRequest request{composeReplyTo, composeReplyAll, composeForward, mailtoTo,     mailtoSubject,
                                 mailtoCc,       mailtoBcc,       mailtoBody,     composeUnsent};
    composeReplyTo = std::nullopt;
    composeForward = std::nullopt;
    for (auto *field : {&mailtoTo, &mailtoSubject, &mailtoCc, &mailtoBcc, &mailtoBody})
        *field = QString();
    composeUnsent = nullptr;
    return request;
}

void AppState::dropComposeRequests() {
    takeComposeRequest();
    sharedAttachments = {};
    sharedBody = QString();
    showCompose = false;
}

bool AppState::deliversNotifications() const {
    return !isActive || UserDefaults::standard().flag(u"notifyWhileActive"_s).value_or(false);
}

void AppState::startCheck(bool deliver) {
    launch(EmailCheckCoordinator::shared().check(deliver));
}

void AppState::restoreSession() {
    if (std::exchange(m_restorationStarted, true))
        return;
    auto &defaults = UserDefaults::standard();
    if (!defaults.contains(u"serverURL"_s))
        defaults.set(u"serverURL"_s, defaultServerEndpoint());
    if (serverURL->isEmpty()) {
        isLoading = false;
        return;
    }
    launch(restore());
}

QCoro::Task<> AppState::restore() {
    const auto self = shared_from_this();
    APIClient::shared().setServerURL(serverURL);
    serverURL = currentServerAddress();
    try {
        const auto answer = co_await APIClient::shared().get<AuthMeResponse>(u"api/auth/me"_s);
        isLoading = false;
        enterSignedInState(answer.user);
        co_await APIClient::shared().syncAuthCookies();
    } catch (const std::exception &) {
        // Whatever went wrong, the person can sign in again; the cookies stay for the next start.
        isAuthenticated = false;
        isLoading = false;
    }
}

void AppState::didSignIn(const User &user) {
    enterSignedInState(user);
    launch(APIClient::shared().syncAuthCookies());
}

void AppState::enterSignedInState(const User &user) {
    currentUser = user;
    isAuthenticated = true;
    if (user.theme)
        themeManager.setCurrentThemeId(*user.theme);
    sseClient.connect(serverURL);
    startCheck(false);
}

QCoro::Task<> AppState::signOut() {
    const auto self = shared_from_this();
    auto &server = APIClient::shared();
    try {
        co_await server.postVoid(u"api/auth/logout"_s);
    } catch (const std::exception &) {
        // Signing out works without a network, too.
    }
    server.clearCookies();
    server.clearAuthMirror();
    notificationService.forgetMailboxes();
    notificationService.resetBadges();
    currentUser = std::nullopt;
    isAuthenticated = false;
    selectedFolder = std::nullopt;
    selectedEmailUID = std::nullopt;
    navigationDestination = std::nullopt;
    // Nobody else is to find what one person was about to write.
    dropComposeRequests();
    sseClient.disconnect();
}
