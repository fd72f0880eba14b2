#include "app/screens/CorvaniteApp.h"

#include "app/screens/ComposePresenter.h"
#include "app/screens/ContentView.h"
#include "mail/screens/EmailDetailView.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/MailThemeBackground.h"

#include <QGuiApplication>
#include <QShortcut>
#include <QVBoxLayout>

namespace {

constexpr QSize mainWindowSize(1200, 800);
constexpr QSize smallestMainContent(860, 520);
constexpr QSize emailWindowSize(820, 720);
constexpr QSize smallestEmailContent(640, 520);

} // namespace

CorvaniteApp::CorvaniteApp() {
    observe(&m_appState->themeManager, this, &CorvaniteApp::applyTheme);
    connect(&m_quitting, &QuitAfterSending::failed, this, &CorvaniteApp::openMainWindow);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        m_appState->isActive = state == Qt::ApplicationActive;
        if (m_appState->isActive)
            m_delegate.didBecomeActive();
    });
}

CorvaniteApp::~CorvaniteApp() {
    for (const auto &window : m_emailWindows)
        delete window.second;
}

void CorvaniteApp::followSystemAppearance() {
    m_appearance = std::make_unique<SystemAppearance>();
    connect(m_appearance.get(), &SystemAppearance::prefersDarkChanged, this, [this](bool prefersDark) {
        m_appState->themeManager.setSystemColorScheme(prefersDark ? ColorScheme::dark : ColorScheme::light);
    });
}

void CorvaniteApp::launch() {
    m_delegate.didFinishLaunching();
    openMainWindow();
    m_appState->restoreSession();
    m_delegate.appState = m_appState;
    m_delegate.deliverPending();
    m_delegate.openMainWindow = [this] { openMainWindow(); };
    m_delegate.loadSharedItems();
    QMetaObject::invokeMethod(this, &CorvaniteApp::followSystemAppearance, Qt::QueuedConnection);
}

void CorvaniteApp::applyTheme() {
    ::applyTheme(m_appState->themeManager.currentTheme());
}

std::unique_ptr<AppWindow> CorvaniteApp::makeWindow(const QString &title, QSize usual) {
    auto window = std::make_unique<AppWindow>(title, m_appState, [this] { openMainWindow(); });
    window->resize(usual);
    return window;
}

void CorvaniteApp::makeMainWindow() {
    m_mainWindow = makeWindow(QStringLiteral("Corvanite"), mainWindowSize);
    auto *content = new ContentView(m_appState, m_mainWindow->focusedActions());
    connect(content, &ContentView::emailWindowRequested, this, &CorvaniteApp::openEmailWindow);
    content->setMinimumSize(smallestMainContent);
    m_mainWindow->setContent(content);
    new ComposePresenter(m_appState, m_mainWindow.get(), [this] { openMainWindow(); });
}

void CorvaniteApp::openMainWindow() {
    if (!m_mainWindow)
        makeMainWindow();
    m_quitting.cancel();
    bringToFront(*m_mainWindow);
}

void CorvaniteApp::openEmailWindow(const EmailWindowRef &reference) {
    std::erase_if(m_emailWindows, [](const auto &window) { return window.second.isNull(); });
    for (const auto &[open, window] : m_emailWindows)
        if (open == reference)
            return bringToFront(*window);
    auto *window = makeWindow(QStringLiteral("Email"), emailWindowSize).release();
    window->setAttribute(Qt::WA_DeleteOnClose);
    m_emailWindows.emplace_back(reference, window);
    auto state = EmailDetailState::make(m_appState);
    state->show(reference);
    auto *background = new MailThemeBackground(true);
    auto *detail = new EmailDetailView(m_appState, state, window->focusedActions());
    auto *layout = new QVBoxLayout(background);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(detail);
    background->setMinimumSize(smallestEmailContent);
    window->setContent(background);
    connect(new QShortcut(Qt::Key_Escape, window), &QShortcut::activated, window, &QWidget::close);
    connect(state.get(), &EmailDetailState::dismissRequested, window, &QWidget::close);
    // It shows mail of the account that is signed in.
    connect(m_appState.get(), &ObservableObject::changed, window, [this, window] {
        if (!m_appState->isAuthenticated)
            window->close();
    });
    window->show();
    detail->focusBody();
}
