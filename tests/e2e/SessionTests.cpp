#include "TestMaildir.h"
#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"
#include "ui/screens/ErrorBanner.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QProcess>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

/// The text of the banner under the sign-in form; empty when there is none.
QString bannerText(AppDriver &app) {
    for (auto *banner : app.window().findChildren<ErrorBanner *>())
        if (banner->isVisible())
            return banner->accessibleName();
    return {};
}

TEST(Session, RefusesAWrongPasswordAndKeepsTheForm) {
    const DevServerProcess server;
    AppDriver app(server.address());
    app.find<QLineEdit>(u"Username or Email"_s)->setFocus();
    app.type(u"demo"_s);
    app.press(Qt::Key_Tab);
    app.type(u"wrong"_s);
    app.press(Qt::Key_Return);
    EXPECT_TRUE(AppDriver::waitUntil([&] { return !bannerText(app).isEmpty(); }));
    EXPECT_EQ(app.find<QLineEdit>(u"Username or Email"_s)->text(), u"demo"_s);
    EXPECT_FALSE(app.state().isAuthenticated);
}

TEST(Session, CreatesAnAccountAndSignsInWithIt) {
    const DevServerProcess server;
    AppDriver app(server.address());
    ASSERT_TRUE(AppDriver::waitUntil([&] { return app.find(u"Create one"_s) != nullptr; }));
    app.click(app.find(u"Create one"_s));
    ASSERT_TRUE(AppDriver::waitUntil([&] { return app.find(u"Full Name"_s) != nullptr; }));
    for (const auto &[field, text] : {std::pair{u"Full Name"_s, u"Grace Example"_s},
                                      {u"Username"_s, u"grace"_s},
                                      {u"Email"_s, u"grace@corvanite.example"_s},
                                      {u"Password"_s, u"hopper7"_s}}) {
        app.find<QLineEdit>(field)->setFocus();
        app.type(text);
    }
    app.press(Qt::Key_Return);
    ASSERT_TRUE(AppDriver::waitUntil([&] { return app.find(u"Sign In"_s) != nullptr; }));
    EXPECT_EQ(app.find<QLineEdit>(u"Username or Email"_s)->text(), u"grace"_s);
    app.click(app.find(u"Sign In"_s));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return app.state().isAuthenticated.get(); }));
    EXPECT_EQ(app.state().currentUser.get()->full_name, u"Grace Example"_s);
}

TEST(Session, RefusesASelfSignedServerUntilThePersonTrustsIt) {
    const DevServerProcess server({u"--tls"_s});
    AppDriver app(server.address());
    app.find<QLineEdit>(u"Username or Email"_s)->setFocus();
    app.type(u"demo"_s);
    app.press(Qt::Key_Tab);
    app.type(u"corvanite"_s);
    app.press(Qt::Key_Return);
    ASSERT_TRUE(AppDriver::waitUntil([&] { return !bannerText(app).isEmpty(); }));
    EXPECT_THAT(bannerText(app).toStdString(), testing::HasSubstr("is not trusted"));

    app.click(app.find(u"Change Server…"_s));
    auto *trust = app.find<QCheckBox>(u"Trust the server's own certificate"_s);
    ASSERT_TRUE(trust);
    trust->click();
    app.click(app.find(u"Use This Server"_s));
    app.click(app.find(u"Sign In"_s));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return app.state().isAuthenticated.get(); }));
}

TEST(Session, SignsOutToTheSignInScreenAndForgetsTheCookie) {
    const DevServerProcess server;
    AppDriver app(server.address());
    app.signIn(u"demo"_s, u"corvanite"_s);
    ASSERT_TRUE(app.waitForList());
    app.state().signOut();
    EXPECT_TRUE(AppDriver::waitUntil([&] { return app.find(u"Sign In"_s) != nullptr; }));
    EXPECT_FALSE(app.state().isAuthenticated);
    EXPECT_FALSE(app.state().sseClient.isConnected);
}

/// Runs the installed program on the profile of this process until the server has been asked for mail.
bool programReadsMail(DevServerProcess &server) {
    const auto before = server.requests(u"/api/emails/list"_s);
    QProcess program;
    program.setProcessChannelMode(QProcess::ForwardedChannels);
    program.start(QString::fromUtf8(CORVANITE_PROGRAM));
    const bool hasRead = AppDriver::waitUntil([&] { return server.requests(u"/api/emails/list"_s) > before; });
    program.kill();
    program.waitForFinished();
    return hasRead;
}

TEST(Session, OutlivesTheProgramEvenWhenItIsKilled) {
    DevServerProcess server({u"--verbose"_s});
    AppDriver app(server.address());
    app.signIn(u"demo"_s, u"corvanite"_s);
    ASSERT_TRUE(app.waitForList());
    EXPECT_TRUE(programReadsMail(server));
    EXPECT_TRUE(programReadsMail(server)) << "the session was lost when the program was killed";
}

} // namespace
