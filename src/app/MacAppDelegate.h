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
    /// Hands to `AppState` what arrived before it was there.
    void deliverPending();

private:
    void reconnect();
    void refreshMail();

    ScheduledWorkPtr m_emailPollTimer;
};
