#include "app/screens/ContentView.h"

#include "app/screens/LoginView.h"
#include "app/screens/MainScreen.h"
#include "ui/screens/SplashView.h"

#include <QGraphicsOpacityEffect>
#include <QLabel>
#include <QPropertyAnimation>
#include <QStackedLayout>

namespace {

constexpr int fadeDuration = 200; // milliseconds

} // namespace

ContentView::ContentView(std::shared_ptr<AppState> appState, QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_layout(new QStackedLayout(this)) {
    observe(m_appState.get(), this, &ContentView::render);
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
    auto *main = new MainScreen(m_appState);
    connect(main, &MainScreen::emailWindowRequested, this, &ContentView::emailWindowRequested);
    return main;
}

void ContentView::render() {
    const auto wanted = wantedScreen();
    if (m_screen == wanted)
        return;
    // A splash that hardly anybody saw is not faded out: a quick start is not made to look slow.
    const auto now = Clock::shared().uptime();
    const bool fades = m_screen != Screen::splash || now - m_shownSince >= Clock::Duration(fadeDuration);
    m_shownSince = now;
    m_screen = wanted;
    const QPointer<QWidget> former = m_shown;
    m_shown = makeScreen(wanted);
    m_layout->addWidget(m_shown);
    m_layout->setCurrentWidget(m_shown);
    if (!former)
        return;
    if (fades)
        fadeFrom(former);
    former->deleteLater();
}

void ContentView::fadeFrom(QWidget *former) {
    if (!isVisible())
        return;
    auto *picture = new QLabel(this);
    picture->setPixmap(former->grab());
    picture->setGeometry(rect());
    picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto *opacity = new QGraphicsOpacityEffect(picture);
    picture->setGraphicsEffect(opacity);
    auto *fade = new QPropertyAnimation(opacity, "opacity", picture);
    fade->setDuration(fadeDuration);
    fade->setStartValue(1.0);
    fade->setEndValue(0.0);
    fade->setEasingCurve(QEasingCurve::InOutQuad);
    connect(fade, &QAbstractAnimation::finished, picture, &QObject::deleteLater);
    picture->show();
    picture->raise();
    fade->start();
}
