#include "app/MacAppDelegate.h"

#include "notify/EmailCheckCoordinator.h"
#include "platform/Tasks.h"

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
