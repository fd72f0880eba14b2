#pragma once

#include "app/screens/CorvaniteApp.h"
#include "app/screens/MainScreen.h"

#include <QImage>
#include <QTemporaryDir>
#include <functional>

/// Runs the whole program in this process and uses it as a person would: keys, clicks, looking at the screen.
class AppDriver {
public:
    /// The profile is a folder of its own, which knows this server's address.
    explicit AppDriver(const QString &serverAddress);
    ~AppDriver();

    AppState &state() { return *m_app->appState(); }
    QWidget &window() { return *m_app->mainWindow(); }

    /// Runs the event loop until the condition holds; false after `seconds`.
    static bool waitUntil(const std::function<bool()> &condition, int seconds = 20);
    /// Runs the event loop until nothing has happened for a moment, so that pending paints are on the screen.
    static void settle();

    /// The visible widget that a screen reader calls by this name, below `root` or the main window; null when there is
    /// none.
    template <typename Widget = QWidget> Widget *find(const QString &name, QWidget *root = nullptr) {
        for (auto *widget : (root ? root : &window())->findChildren<Widget *>())
            if (widget->isVisible() && accessibleName(widget) == name)
                return widget;
        return nullptr;
    }

    void signIn(const QString &username, const QString &password);
    MainScreen &mainScreen();
    /// Waits until the list shows what the server has: rows, a placeholder or an error.
    bool waitForList();
    bool selectFolder(const QString &path);
    /// Selects this row of the list and waits until the message's body is on the screen.
    bool openRow(int row);
    /// The same for the first row with this subject.
    bool openMessage(const QString &subject);
    /// Waits until the body on the screen is that of the message and the images setting in force.
    bool waitForBody(const std::function<void()> &trigger);
    void type(const QString &text);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void click(QWidget *widget);
    /// What the display shows at the main window's place, whatever drew it.
    QImage screenshot() { return screenshot(window()); }
    /// The same at the place of another.
    static QImage screenshot(const QWidget &window);

private:
    static QString accessibleName(QWidget *widget);

    QTemporaryDir m_profile;
    std::unique_ptr<CorvaniteApp> m_app;
};
