#include "app/MacAppDelegate.h"

#include "app/MailtoLink.h"
#include "notify/EmailCheckCoordinator.h"
#include "platform/BackgroundWork.h"
#include "platform/Tasks.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

constexpr auto pollInterval = std::chrono::seconds(60);
constexpr auto pollTolerance = std::chrono::seconds(10);

} // namespace

void MacAppDelegate::didFinishLaunching() {
    m_emailPollTimer = Clock::shared().every(
        pollInterval, [this] { refreshMail(); }, pollTolerance);
}

void MacAppDelegate::handleReopen() {
    if (openMainWindow)
        openMainWindow();
}

void MacAppDelegate::didBecomeActive() {
    reconnect();
    loadSharedItems();
}

void MacAppDelegate::wokeFromSleep() {
    reconnect();
}

void MacAppDelegate::reconnect() {
    const auto state = appState.lock();
    if (!state || !state->isAuthenticated)
        return;
    state->sseClient.connect(state->serverURL);
    refreshMail();
}

void MacAppDelegate::refreshMail() {
    const auto state = appState.lock();
    if (state && state->isAuthenticated)
        launch(EmailCheckCoordinator::shared().check(state->deliversNotifications()));
}

void MacAppDelegate::handleOpenURL(const QString &url) {
    if (openMainWindow)
        openMainWindow();
    const QUrl parsed(url);
    const auto scheme = url.section(u':', 0, 0).toLower();
    if (scheme == "mailto"_L1)
        openMailto(url);
    else if (scheme == "corvanite"_L1 && parsed.host() == "compose-share"_L1)
        loadSharedItems();
}

void MacAppDelegate::openMailto(const QString &url) {
    const auto state = appState.lock();
    if (!state)
        return;
    const auto link = parseMailto(url);
    const std::pair<Published<QString> &, const QString &> fields[] = {{state->mailtoTo, link.to},
                                                                       {state->mailtoSubject, link.subject},
                                                                       {state->mailtoCc, link.cc},
                                                                       {state->mailtoBcc, link.bcc},
                                                                       {state->mailtoBody, link.body}};
    for (const auto &[field, text] : fields)
        if (!text.isEmpty())
            field = text;
    state->presentCompose();
}

void MacAppDelegate::loadSharedItems() {
    if (appState.expired() || m_isLoadingSharedItems)
        return;
    m_isLoadingSharedItems = true;
    runInBackground(takeSharedItems, this, [this](const std::optional<SharedItems> &items) {
        m_isLoadingSharedItems = false;
        if (items)
            compose(*items);
    });
}

void MacAppDelegate::compose(const SharedItems &items) {
    const auto state = appState.lock();
    if (!state)
        return;
    state->sharedAttachments = items.attachments;
    state->sharedBody = items.body;
    state->presentCompose();
}

void MacAppDelegate::deliverPending() {
    const auto state = appState.lock();
    if (!state)
        return;
    if (pendingQuickAction)
        state->pendingShortcutAction = std::exchange(pendingQuickAction, std::nullopt);
    if (pendingEmail)
        state->pendingOpenEmail = std::exchange(pendingEmail, std::nullopt);
    if (pendingChat)
        state->pendingOpenChat = std::exchange(pendingChat, std::nullopt);
}
