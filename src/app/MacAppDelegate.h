#pragma once

#include "app/AppState.h"

/// What the desktop sends to the program: activation, wake from sleep, the poll timer's ticks. Main thread only.
class MacAppDelegate : public QObject {
    Q_OBJECT
public:
    /// Set when the main window first appears; held weakly, so that a late call does nothing.
    std::weak_ptr<AppState> appState;
    /// Opens the main window, or raises it.
    std::function<void()> openMainWindow;
    std::optional<QuickActionType> pendingQuickAction;
    std::optional<PendingEmail> pendingEmail;
    std::optional<QString> pendingChat;

    /// Starts the poll timer.
    void didFinishLaunching();
    /// A further start of the program, or a click on it, while it runs.
    void handleReopen();
    void didBecomeActive();
    void wokeFromSleep();
    /// A `mailto:` link, or one of the program's own.
    void handleOpenURL(const QString &url);
    /// Begins a message with what a companion process has left for one.
    void loadSharedItems();
    /// Hands to `AppState` what arrived before it was there.
    void deliverPending();

private:
    void reconnect();
    void refreshMail();
    void openMailto(const QString &url);
    void compose(const SharedItems &items);

    bool m_isLoadingSharedItems = false;
    ScheduledWorkPtr m_emailPollTimer;
};
