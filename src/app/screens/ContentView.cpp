#include "app/screens/ContentView.h"

#include "app/screens/KeyboardShortcutsView.h"
#include "app/screens/LoginView.h"
#include "app/screens/MainScreen.h"
#include "ui/screens/CrossFade.h"
#include "ui/screens/SplashView.h"

#include <QStackedLayout>

namespace {

constexpr auto shortestSplash = std::chrono::milliseconds(200);

} // namespace

ContentView::ContentView(std::shared_ptr<AppState> appState, FocusedActions &actions, QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_actions(actions)
    , m_layout(new QStackedLayout(this)) {
    observe(m_appState.get(), this, &ContentView::render);
    observe(m_appState.get(), this, &ContentView::renderShortcuts);
}

void ContentView::renderShortcuts() {
    if (!m_appState->showKeyboardShortcuts || m_shortcuts)
        return;
    m_shortcuts = new KeyboardShortcutsView(this);
    connect(m_shortcuts, &QDialog::finished, m_appState.get(), [this] { m_appState->showKeyboardShortcuts = false; });
    m_shortcuts->open();
}

MainScreen *ContentView::mainScreen() const {
    return qobject_cast<MainScreen *>(m_shown.data());
}

ContentView::Screen ContentView::wantedScreen() const {
    if (m_appState->isLoading)
        return Screen::splash;
    return m_appState->isAuthenticated ? Screen::main : Screen::signIn;
}

QWidget *ContentView::makeScreen(Screen screen) {
    switch (screen) {
    case Screen::splash:
        return new SplashView;
    case Screen::signIn:
        return new LoginView(m_appState);
    case Screen::main:
        break;
    }
    auto *main = new MainScreen(m_appState, m_actions);
    connect(main, &MainScreen::emailWindowRequested, this, &ContentView::emailWindowRequested);
    return main;
}

void ContentView::render() {
    const auto wanted = wantedScreen();
    if (m_screen == wanted)
        return;
    // A splash that hardly anybody saw is not faded out: a quick start is not made to look slow.
    const auto now = Clock::shared().uptime();
    const bool fades = m_screen != Screen::splash || now - m_shownSince >= shortestSplash;
    m_shownSince = now;
    m_screen = wanted;
    const QPointer<QWidget> former = m_shown;
    m_shown = makeScreen(wanted);
    m_layout->addWidget(m_shown);
    m_layout->setCurrentWidget(m_shown);
    if (!former)
        return;
    if (fades && isVisible())
        new CrossFade(former->grab(), this);
    former->deleteLater();
}
