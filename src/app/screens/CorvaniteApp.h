#pragma once

#include "app/MacAppDelegate.h"
#include "app/screens/AppWindow.h"
#include "app/screens/QuitAfterSending.h"
#include "mail/EmailWindowRef.h"
#include "platform/desktop/SystemAppearance.h"

#include <QPointer>

/// The running program: its state, its delegate and its windows. Lives as long as the application object.
class CorvaniteApp : public QObject {
    Q_OBJECT
public:
    CorvaniteApp();
    ~CorvaniteApp() override;

    const std::shared_ptr<AppState> &appState() const { return m_appState; }
    MacAppDelegate &delegate() { return m_delegate; }
    AppWindow *mainWindow() const { return m_mainWindow.get(); }

    /// Shows the main window, restores the session and starts the timers.
    void launch();
    void openMainWindow();
    /// A message in a window of its own; one that is open already comes to the front.
    void openEmailWindow(const EmailWindowRef &reference);

private:
    void applyTheme();
    void followSystemAppearance();
    std::unique_ptr<AppWindow> makeWindow(const QString &title, QSize usual);
    void makeMainWindow();

    std::shared_ptr<AppState> m_appState = std::make_shared<AppState>();
    QuitAfterSending m_quitting{m_appState->sendOutcomes};
    MacAppDelegate m_delegate;
    std::unique_ptr<SystemAppearance> m_appearance;
    std::unique_ptr<AppWindow> m_mainWindow;
    std::vector<std::pair<EmailWindowRef, QPointer<QWidget>>> m_emailWindows;
};
