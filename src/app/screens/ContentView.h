#pragma once

#include "app/AppState.h"
#include "mail/EmailWindowRef.h"

#include <QPointer>
#include <QWidget>

class FocusedActions;
class KeyboardShortcutsView;
class QStackedLayout;
class MainScreen;

/// The main window's content: splash, sign-in or the main screen, faded from one to the next.
class ContentView final : public QWidget {
    Q_OBJECT
public:
    /// `actions` outlives it.
    ContentView(std::shared_ptr<AppState> appState, FocusedActions &actions, QWidget *parent = nullptr);

    /// Null unless somebody is signed in.
    MainScreen *mainScreen() const;

Q_SIGNALS:
    void emailWindowRequested(const EmailWindowRef &reference);

private:
    enum class Screen { splash, signIn, main };

    Screen wantedScreen() const;
    QWidget *makeScreen(Screen screen);
    void render();
    void renderShortcuts();

    std::shared_ptr<AppState> m_appState;
    FocusedActions &m_actions;
    QStackedLayout *m_layout;
    std::optional<Screen> m_screen;
    QPointer<QWidget> m_shown;
    QPointer<KeyboardShortcutsView> m_shortcuts;
    Clock::Duration m_shownSince{};
};
