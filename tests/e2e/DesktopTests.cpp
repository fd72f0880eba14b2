#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QProcess>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr uint prefersDark = 1, prefersLight = 2;

/// Stands for the desktop's settings portal.
class FakePortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")
public:
    explicit FakePortal(uint scheme)
        : m_scheme(scheme) {
        m_bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(u"org.freedesktop.portal.Desktop"_s);
    }

    void change(uint scheme) {
        auto signal = QDBusMessage::createSignal(path, u"org.freedesktop.portal.Settings"_s, u"SettingChanged"_s);
        signal << u"org.freedesktop.appearance"_s << u"color-scheme"_s << QVariant::fromValue(QDBusVariant(scheme));
        m_bus.send(signal);
    }

public Q_SLOTS:
    QDBusVariant Read(const QString &, const QString &) {
        return QDBusVariant(QVariant::fromValue(QDBusVariant(m_scheme)));
    }

private:
    const QString path = u"/org/freedesktop/portal/desktop"_s;
    uint m_scheme;
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
};

/// Stands for a program that runs already.
class RunningInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")
public:
    RunningInstance() {
        m_bus.registerObject(u"/com/corvanite/Corvanite"_s, this, QDBusConnection::ExportAllSlots);
        m_bus.registerService(u"com.corvanite.Corvanite"_s);
    }

    int activations = 0;
    QStringList opened;

public Q_SLOTS:
    void Activate(const QVariantMap &) { ++activations; }
    void Open(const QStringList &uris, const QVariantMap &) { opened = uris; }

private:
    QDBusConnection m_bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"running"_s);
};

TEST(Desktop, FollowsTheDesktopsChoiceOfDarkWindows) {
    FakePortal portal(prefersDark);
    const DevServerProcess server;
    AppDriver app(server.address());
    const auto themeID = [&] { return app.state().themeManager.currentTheme().id; };
    EXPECT_TRUE(AppDriver::waitUntil([&] { return themeID() == u"amoled"_s; }));
    portal.change(prefersLight);
    EXPECT_TRUE(AppDriver::waitUntil([&] { return themeID() == u"light"_s; }));
}

TEST(Desktop, HandsALinkToTheRunningProgram) {
    RunningInstance running;
    QProcess program;
    const auto link = u"mailto:ada@example.org?subject=A%20%26%20B"_s;
    program.start(QString::fromUtf8(CORVANITE_PROGRAM), {link});
    ASSERT_TRUE(AppDriver::waitUntil([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(running.opened, QStringList{link});
}

TEST(Desktop, HandsASecondStartToTheRunningProgram) {
    RunningInstance running;
    QProcess program;
    program.start(QString::fromUtf8(CORVANITE_PROGRAM));
    ASSERT_TRUE(AppDriver::waitUntil([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_EQ(running.activations, 1);
}

} // namespace

#include "DesktopTests.moc"
