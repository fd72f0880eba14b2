#include "app/AppStateFixture.h"
#include "app/screens/LoginView.h"
#include "mail/MailAnswers.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/screens/CrossFade.h"
#include "ui/screens/ErrorBanner.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class SignInScreen : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/auth/registration-status").json(R"({"allowed": true})").anyNumberOfTimes();
        state->isLoading = false;
        open();
    }
    void TearDown() override {
        view.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    void open() {
        view = std::make_unique<LoginView>(state);
        view->resize(900, 1000);
        showActive(*view);
        settle();
    }
    template <typename T> T *named(const QString &name) const { return visibleNamed<T>(*view, name); }
    void press(const QString &button) {
        named<QPushButton>(button)->click();
        settle();
    }
    void type(const QString &field, const QString &text) {
        auto *box = named<QLineEdit>(field);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
    }
    /// The first visible error, empty for none.
    QString error() const {
        for (auto *banner : view->findChildren<ErrorBanner *>())
            if (banner->isVisible())
                return banner->accessibleName();
        return {};
    }

    std::unique_ptr<LoginView> view;
};

} // namespace

TEST_F(SignInScreen, IsWalkedThroughWithTheTabKey) {
    EXPECT_EQ(tabOrder(*view),
              (QStringList{u"Username or Email"_s, u"Password"_s, u"Sign In"_s, u"Create one"_s, u"Change Server…"_s}));
    press(u"Create one"_s);
    EXPECT_EQ(tabOrder(*view), (QStringList{u"Full Name"_s, u"Username"_s, u"Email"_s, u"Password"_s,
                                            u"Create Account"_s, u"Sign in"_s, u"Change Server…"_s}));
    press(u"Change Server…"_s);
    EXPECT_EQ(tabOrder(*view).sliced(0, 4), (QStringList{u"Server Address"_s, u"Trust the server's own certificate"_s,
                                                         u"Cancel"_s, u"Use This Server"_s}));
}

TEST_F(SignInScreen, IsSentByReturnAndBusyUntilTheAnswer) {
    auto &login = server.expect("POST", "/api/auth/login").held();
    type(u"Username or Email"_s, u"anna"_s);
    type(u"Password"_s, u"secret"_s);
    EXPECT_EQ(named<QLineEdit>(u"Password"_s)->echoMode(), QLineEdit::Password);
    QTest::keyClick(named<QLineEdit>(u"Password"_s), Qt::Key_Return);
    EXPECT_EQ(parseJSON(login.request().body), parseJSON(R"({"username": "anna", "password": "secret"})"));
    deliverQueuedEvents();
    auto *button = named<QPushButton>(u"Signing in..."_s);
    ASSERT_TRUE(button);
    EXPECT_FALSE(button->isEnabled());
    QTest::keyClick(named<QLineEdit>(u"Password"_s), Qt::Key_Return);
    server.assertSilence();
    answerHeld(login, R"({"user": {"username": "anna"}})");
    stream.request();
    settle();
    EXPECT_TRUE(state->isAuthenticated);
    EXPECT_TRUE(named<QPushButton>(u"Sign In"_s)->isEnabled());
}

TEST_F(SignInScreen, KeepsTheFocusOnTheButtonThatFailed) {
    server.expect("POST", "/api/auth/login").json(R"({"error": "Wrong password"})", 400);
    type(u"Username or Email"_s, u"anna"_s);
    type(u"Password"_s, u"wrong"_s);
    auto *button = named<QPushButton>(u"Sign In"_s);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_Return);
    settle();
    EXPECT_EQ(error(), u"Wrong password"_s);
    EXPECT_TRUE(button->hasFocus());
}

TEST_F(SignInScreen, ShowsWhatIsWrongUntilTheFormIsSwitched) {
    EXPECT_EQ(error(), QString());
    press(u"Sign In"_s);
    EXPECT_EQ(error(), u"Please enter username and password"_s);
    press(u"Create one"_s);
    EXPECT_EQ(error(), QString());
    press(u"Create Account"_s);
    EXPECT_EQ(error(), u"All fields are required"_s);
    press(u"Sign in"_s);
    EXPECT_EQ(error(), QString());
}

TEST_F(SignInScreen, KeepsTheFieldsOverASwitchAndARegistration) {
    type(u"Username or Email"_s, u"anna"_s);
    type(u"Password"_s, u"secret"_s);
    press(u"Create one"_s);
    EXPECT_TRUE(named<QLineEdit>(u"Full Name"_s)->hasFocus());
    EXPECT_EQ(named<QLineEdit>(u"Username"_s)->text(), u"anna"_s);
    EXPECT_EQ(named<QLineEdit>(u"Password"_s)->text(), u"secret"_s);
    type(u"Full Name"_s, u"Anna"_s);
    type(u"Email"_s, u"a@x.org"_s);
    auto &request = server.expect("POST", "/api/auth/register").held();
    QTest::keyClick(named<QLineEdit>(u"Email"_s), Qt::Key_Return);
    request.request();
    deliverQueuedEvents();
    EXPECT_FALSE(named<QPushButton>(u"Creating..."_s)->isEnabled());
    answerHeld(request, "{}");
    settle();
    EXPECT_TRUE(named<QPushButton>(u"Sign In"_s)->isEnabled());
    EXPECT_EQ(named<QLineEdit>(u"Username or Email"_s)->text(), u"anna"_s);
    EXPECT_EQ(named<QLineEdit>(u"Password"_s)->text(), u"secret"_s);
}

TEST_F(SignInScreen, OffersNoRegistrationWhereTheServerRefuses) {
    view.reset();
    FakeServer other;
    other.makeCurrent();
    other.expect("GET", "/api/auth/registration-status").json(R"({"allowed": false})");
    open();
    EXPECT_FALSE(named<QPushButton>(u"Create one"_s));
}

TEST_F(SignInScreen, TakesAnotherServer) {
    FakeServer other;
    other.expect("GET", "/api/auth/registration-status").json(R"({"allowed": false})");
    press(u"Change Server…"_s);
    auto *address = named<QLineEdit>(u"Server Address"_s);
    EXPECT_EQ(address->text(), server.address());
    EXPECT_TRUE(address->hasFocus());
    type(u"Server Address"_s, u"no server"_s);
    QTest::keyClick(address, Qt::Key_Return);
    settle();
    EXPECT_TRUE(error().startsWith(u"This is not a server address."_s));
    type(u"Server Address"_s, other.address());
    press(u"Use This Server"_s);
    EXPECT_EQ(*state->serverURL, other.address());
    EXPECT_FALSE(named<QLineEdit>(u"Server Address"_s));
    EXPECT_FALSE(named<QPushButton>(u"Create one"_s));
}

TEST_F(SignInScreen, ShowsTheWholeServerFormInALowWindow) {
    view->resize(860, 520);
    press(u"Create one"_s);
    press(u"Change Server…"_s);
    const auto isSeen = [this](const QString &name) {
        const auto *button = named<QAbstractButton>(name);
        return button && button->visibleRegion().boundingRect() == button->rect();
    };
    EXPECT_TRUE(isSeen(u"Use This Server"_s));
    named<QCheckBox>(u"Trust the server's own certificate"_s)->click();
    settle();
    EXPECT_TRUE(isSeen(u"Use This Server"_s)) << "the warning pushes it down";
}

TEST_F(SignInScreen, LeavesTheServerFormWithEscape) {
    auto *change = named<QPushButton>(u"Change Server…"_s);
    change->setFocus();
    QTest::keyClick(change, Qt::Key_Return);
    type(u"Server Address"_s, u"other.example.org"_s);
    QTest::keyClick(named<QLineEdit>(u"Server Address"_s), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(named<QLineEdit>(u"Server Address"_s));
    EXPECT_TRUE(change->hasFocus());
    EXPECT_EQ(*state->serverURL, server.address());
}

TEST_F(SignInScreen, FadesFromOneFormToTheOther) {
    EXPECT_FALSE(view->findChild<CrossFade *>());
    press(u"Create one"_s);
    EXPECT_TRUE(view->findChild<CrossFade *>());
    EXPECT_TRUE(named<QLineEdit>(u"Full Name"_s)->hasFocus()) << "typing need not wait";
    EXPECT_TRUE(spinUntil([this] { return !view->findChild<CrossFade *>(); }));
}

TEST_F(SignInScreen, WarnsOfTrustingAnyCertificate) {
    press(u"Change Server…"_s);
    auto *trust = named<QCheckBox>(u"Trust the server's own certificate"_s);
    EXPECT_FALSE(showsText(*view, u"any certificate is accepted"_s));
    trust->click();
    settle();
    EXPECT_TRUE(showsText(*view, u"any certificate is accepted"_s));
    press(u"Cancel"_s);
    EXPECT_FALSE(UserDefaults::standard().flag(u"trustSelfSigned"_s).value_or(false));
    press(u"Change Server…"_s);
    EXPECT_FALSE(trust->isChecked());
    trust->click();
    press(u"Use This Server"_s);
    EXPECT_EQ(UserDefaults::standard().flag(u"trustSelfSigned"_s), true);
}

TEST_F(SignInScreen, NamesEverythingThatTakesTheFocus) {
    EXPECT_EQ(namelessControls(*view), QStringList());
    press(u"Create one"_s);
    press(u"Change Server…"_s);
    EXPECT_EQ(namelessControls(*view), QStringList());
}
