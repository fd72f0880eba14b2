#include "app/screens/CorvaniteApp.h"

#include "app/screens/ContentView.h"
#include "mail/screens/EmailDetailView.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/MailThemeBackground.h"
#include "ui/screens/Symbols.h"

#include <QAction>
#include <QGuiApplication>
#include <QVBoxLayout>

namespace {

constexpr QSize mainWindowSize(1200, 800);
constexpr QSize smallestMainWindow(860, 520);
constexpr QSize emailWindowSize(820, 720);
constexpr QSize smallestEmailWindow(640, 520);

void addCloseAndQuit(QWidget *window) {
    auto *close = new QAction(window);
    close->setShortcut(QKeySequence::Close);
    QObject::connect(close, &QAction::triggered, window, &QWidget::close);
    auto *quit = new QAction(window);
    quit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    QObject::connect(quit, &QAction::triggered, qGuiApp, &QCoreApplication::quit, Qt::QueuedConnection);
    window->addActions({close, quit});
}

} // namespace

CorvaniteApp::CorvaniteApp() {
    observe(&m_appState->themeManager, this, &CorvaniteApp::applyTheme);
    connect(qGuiApp, &QGuiApplication::applicationStateChanged, this, [this](Qt::ApplicationState state) {
        if (state == Qt::ApplicationActive)
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
    QMetaObject::invokeMethod(this, &CorvaniteApp::followSystemAppearance, Qt::QueuedConnection);
}

void CorvaniteApp::applyTheme() {
    ::applyTheme(m_appState->themeManager.currentTheme());
}

std::unique_ptr<QWidget> CorvaniteApp::makeMainWindow() {
    auto content = std::make_unique<ContentView>(m_appState);
    connect(content.get(), &ContentView::emailWindowRequested, this, &CorvaniteApp::openEmailWindow);
    content->setWindowTitle(QStringLiteral("Corvanite"));
    content->setMinimumSize(smallestMainWindow);
    content->resize(mainWindowSize);
    addCloseAndQuit(content.get());
    return content;
}

void CorvaniteApp::openMainWindow() {
    if (!m_mainWindow)
        m_mainWindow = makeMainWindow();
    m_mainWindow->show();
    m_mainWindow->raise();
    m_mainWindow->activateWindow();
}

void CorvaniteApp::openEmailWindow(const EmailWindowRef &reference) {
    std::erase_if(m_emailWindows, [](const auto &window) { return window.second.isNull(); });
    for (const auto &[open, window] : m_emailWindows)
        if (open == reference) {
            window->raise();
            return window->activateWindow();
        }
    auto *window = new MailThemeBackground(true);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setWindowTitle(QStringLiteral("Email"));
    window->setMinimumSize(smallestEmailWindow);
    window->resize(emailWindowSize);
    addCloseAndQuit(window);
    auto state = EmailDetailState::make(m_appState);
    auto *layout = new QVBoxLayout(window);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *detail = new EmailDetailView(m_appState, state, *new FocusedActions(window));
    layout->addWidget(detail);
    connect(state.get(), &EmailDetailState::dismissRequested, window, &QWidget::close);
    // It shows mail of the account that is signed in.
    connect(m_appState.get(), &ObservableObject::changed, window, [this, window] {
        if (!m_appState->isAuthenticated)
            window->close();
    });
    state->show(reference);
    m_emailWindows.emplace_back(reference, window);
    window->show();
    detail->focusBody();
}
