#include "driver/AppDriver.h"

#include "app/screens/ContentView.h"
#include "mail/screens/EmailDetailView.h"
#include "mail/screens/EmailListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QLineEdit>
#include <QListView>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr auto quietTime = 60; // milliseconds without an event

void writeProfile(const QString &folder, const QString &serverAddress) {
    for (const auto *variable : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
        qputenv(variable, folder.toUtf8());
    QDir().mkpath(folder + u"/corvanite"_s);
    QFile defaults(folder + u"/corvanite/defaults.json"_s);
    if (defaults.open(QIODevice::WriteOnly))
        defaults.write(QJsonDocument(QJsonObject{{u"serverURL"_s, serverAddress}}).toJson());
}

} // namespace

AppDriver::AppDriver(const QString &serverAddress) {
    writeProfile(m_profile.path(), serverAddress);
    m_app = std::make_unique<CorvaniteApp>();
    m_app->launch();
    waitUntil([this] { return window().isVisible() && !state().isLoading.get(); });
    settle();
}

AppDriver::~AppDriver() = default;

QString AppDriver::accessibleName(QWidget *widget) {
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    const auto *button = qobject_cast<QAbstractButton *>(widget);
    return button ? button->text() : QString();
}

bool AppDriver::waitUntil(const std::function<bool()> &condition, int seconds) {
    return QTest::qWaitFor(condition, seconds * 1000);
}

void AppDriver::settle() {
    QTest::qWait(quietTime);
}

void AppDriver::signIn(const QString &username, const QString &password) {
    waitUntil([this] { return find<QLineEdit>(u"Username or Email"_s) != nullptr; });
    find<QLineEdit>(u"Username or Email"_s)->setFocus();
    type(username);
    press(Qt::Key_Tab);
    type(password);
    press(Qt::Key_Return);
    waitUntil([this] { return qobject_cast<ContentView *>(m_app->mainWindow()->content())->mainScreen() != nullptr; });
}

MainScreen &AppDriver::mainScreen() {
    return *qobject_cast<ContentView *>(m_app->mainWindow()->content())->mainScreen();
}

bool AppDriver::waitForList() {
    const auto hasSettled = [this] {
        const auto &list = mainScreen().listState();
        return list.content() != EmailListState::Content::skeleton && !list.viewModel->isLoading &&
               !list.viewModel->isRefreshing && list.rows.rowCount() == int(list.viewModel->emails->size());
    };
    return waitUntil(hasSettled);
}

bool AppDriver::selectFolder(const QString &path) {
    state().navigateToFolder = path;
    return waitUntil([&] { return mainScreen().listState().folder->path == path; }) && waitForList();
}

bool AppDriver::openRow(int row) {
    auto *list = mainScreen().listView()->list();
    return waitForBody([=] {
        list->setFocus();
        list->setCurrentIndex(list->model()->index(row, 0));
    });
}

bool AppDriver::openMessage(const QString &subject) {
    const auto &rows = mainScreen().listState().rows;
    for (int number = 0; number < rows.rowCount(); ++number)
        if (rows.row(number).subject == subject)
            return openRow(number);
    return false;
}

bool AppDriver::waitForBody(const std::function<void()> &trigger) {
    const QSignalSpy painted(mainScreen().detailView(), &EmailDetailView::bodyPainted);
    trigger();
    return waitUntil([&] {
        const auto &detail = mainScreen().detailState();
        const auto &email = detail.viewModel->email.get();
        return email && email->uid == state().selectedEmailUID.get() &&
               detail.content() == EmailDetailState::Content::message &&
               (detail.body() != EmailDetailState::Body::html || !painted.isEmpty());
    });
}

void AppDriver::type(const QString &text) {
    for (const auto character : text)
        QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(), Qt::Key_unknown, QString(character), {});
}

void AppDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    if (auto *focused = QApplication::focusWidget())
        QTest::keyClick(focused, key, modifiers);
    else
        QTest::keyClick(&window(), key, modifiers);
}

void AppDriver::click(QWidget *widget) {
    QTest::mouseClick(widget, Qt::LeftButton);
}

QImage AppDriver::screenshot(const QWidget &window) {
    settle();
    const auto frame = window.geometry();
    return window.screen()->grabWindow(0, frame.x(), frame.y(), frame.width(), frame.height()).toImage();
}
