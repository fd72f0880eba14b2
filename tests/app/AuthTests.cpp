#include "app/AppStateFixture.h"

#include "app/AuthViewModel.h"
#include "app/ServerAddressForm.h"
#include "app/SignIn.h"

using namespace Qt::StringLiterals;

namespace {

class SignInForm : public CoreTest, protected AppStateFixture {
protected:
    void TearDown() override {
        form.reset();
        state.reset();
        CoreTest::TearDown();
    }

    void fill(const QString &password = u"secret"_s) {
        form->username = u"anna"_s;
        form->password = password;
        form->email = u"anna@x.org"_s;
        form->fullName = u"Anna Weber"_s;
    }
    FakeExchange &expectLogin() { return server.expect("POST", "/api/auth/login"); }
    FakeExchange &expectRegister() { return server.expect("POST", "/api/auth/register"); }

    std::shared_ptr<AuthViewModel> form = std::make_shared<AuthViewModel>();
};

struct Answer {
    const char *name;
    int status;
    QByteArray body;
    QString error;
};

class RefusedLogins : public SignInForm, public testing::WithParamInterface<Answer> {};

const Answer refusedLogins[] = {
    {"Message", 400, R"({"message": "Wrong password", "error": "x"})", u"Wrong password"_s},
    {"Error", 403, R"({"error": "Account is closed"})", u"Account is closed"_s},
    {"Unauthorized", 401, R"({"message": "Wrong password"})", u"Session expired. Please log in again."_s},
    {"NoWords", 500, "", u"Request failed (500)"_s},
};

class RegistrationAnswers : public SignInForm, public testing::WithParamInterface<Answer> {};

const Answer registrationAnswers[] = {
    {"Made", 200, R"({"message": "Welcome", "id": "u1"})", QString()},
    {"Empty", 200, "{}", QString()},
    {"Refused", 409, R"({"error": "Username is taken"})", u"Username is taken"_s},
};

struct Fault {
    const char *name;
    QString username, password, email, fullName, error;
};

class RegistrationFaults : public SignInForm, public testing::WithParamInterface<Fault> {};

const auto allRequired = u"All fields are required"_s;
const auto tooShort = u"Password must be at least 6 characters"_s;

const Fault registrationFaults[] = {
    {"NoUsername", u""_s, u"secret"_s, u"e"_s, u"f"_s, allRequired},
    {"NoPassword", u"u"_s, u""_s, u"e"_s, u"f"_s, allRequired},
    {"NoEmail", u"u"_s, u"secret"_s, u""_s, u"f"_s, allRequired},
    {"NoFullName", u"u"_s, u"secret"_s, u"e"_s, u""_s, allRequired},
    {"FiveCharacters", u"u"_s, u"12345"_s, u"e"_s, u"f"_s, tooShort},
    {"FiveOfSeveralCodePoints", u"u"_s, u"👩‍👩‍👧e\u0301🇩🇪👍🏽ß"_s, u"e"_s, u"f"_s, tooShort},
};

struct PortRow {
    const char *name;
    QString text;
    QJsonValue sent;
};

class Ports : public SignInForm, public testing::WithParamInterface<PortRow> {};

const PortRow ports[] = {
    {"Number", u"143"_s, 143},
    {"Signed", u"+143"_s, 143},
    {"Negative", u"-1"_s, -1},
    {"Word", u"abc"_s, QJsonValue(QJsonValue::Undefined)},
    {"Empty", u""_s, QJsonValue(QJsonValue::Undefined)},
    {"Blank", u" 143"_s, QJsonValue(QJsonValue::Undefined)},
    {"Fraction", u"1.5"_s, QJsonValue(QJsonValue::Undefined)},
    {"SignAlone", u"-"_s, QJsonValue(QJsonValue::Undefined)},
    {"TooLarge", u"9223372036854775808"_s, QJsonValue(QJsonValue::Undefined)},
};

struct AddressRow {
    const char *name;
    QString typed, stored;
};

class ServerAddresses : public SignInForm, public testing::WithParamInterface<AddressRow> {};

const AddressRow addresses[] = {
    {"Host", u" mail.example.org/ "_s, u"https://mail.example.org"_s},
    {"Port", u"https://mail.example.org:8443"_s, u"https://mail.example.org:8443"_s},
    {"Plain", u"http://127.0.0.1:3000"_s, u"http://127.0.0.1:3000"_s},
    {"Empty", u"  "_s, QString()},
    {"Blanks", u"my server"_s, QString()},
    {"SchemeOnly", u"https://"_s, QString()},
    {"HTTPOnly", u"http"_s, QString()},
    {"OtherScheme", u"ftp://mail.example.org"_s, QString()},
    {"BadPort", u"https://mail.example.org:99999"_s, QString()},
};

} // namespace

TEST_F(SignInForm, SendsNameAndPasswordAsTyped) {
    form->username = u" "_s;
    form->password = u"ä"_s;
    form->errorMessage = u"before"_s;
    auto &login = expectLogin().held();
    launch(signIn(form, state));
    EXPECT_TRUE(form->isLoading);
    EXPECT_EQ(form->errorMessage.get(), std::nullopt);
    EXPECT_EQ(login.request().body, R"({"username":" ","password":"ä"})");
    EXPECT_EQ(login.request().header("content-type"), "application/json");
    const QByteArray answer = R"({"user": {"_id": "u1", "username": "anna"}})";
    login.sendHead(200, "application/json", "Content-Length: " + QByteArray::number(answer.size()) + "\r\n");
    login.send(answer);
    stream.request();
    settle();
    EXPECT_FALSE(form->isLoading);
    EXPECT_TRUE(state->isAuthenticated);
    EXPECT_EQ(*form->password, u"ä"_s);
}

TEST_F(SignInForm, SendsNothingUnlessBothAreThere) {
    for (const auto &[name, password] : {std::pair{u""_s, u"x"_s}, std::pair{u"x"_s, u""_s}}) {
        form->username = name;
        form->password = password;
        await(signIn(form, state));
        EXPECT_EQ(form->errorMessage.get(), u"Please enter username and password"_s);
        EXPECT_FALSE(form->isLoading);
    }
    server.assertSilence();
}

TEST_P(RefusedLogins, AreExplained) {
    fill();
    expectLogin().answer(GetParam().status, GetParam().body, "application/json");
    await(signIn(form, state));
    EXPECT_EQ(form->errorMessage.get(), GetParam().error);
    EXPECT_FALSE(form->isLoading || state->isAuthenticated);
    EXPECT_EQ(*form->password, u"secret"_s);
}

INSTANTIATE_TEST_SUITE_P(, RefusedLogins, testing::ValuesIn(refusedLogins), rowName);

TEST_F(SignInForm, SaysWhatIsWrongWithAnAnswerWithoutAUser) {
    fill();
    expectLogin().json(R"({"ok": true})");
    await(signIn(form, state));
    EXPECT_FALSE(form->errorMessage->value_or(QString()).isEmpty());
    EXPECT_FALSE(state->isAuthenticated);
}

TEST_F(SignInForm, OffersRegistrationUnlessTheServerRefuses) {
    const auto answers = {std::pair{R"({"allowed": false})"_ba, false}, std::pair{R"({"allowed": true})"_ba, true},
                          std::pair{"x"_ba, true}};
    for (const auto &[answer, isAllowed] : answers) {
        form->isRegistrationAllowed = !isAllowed;
        server.expect("GET", "/api/auth/registration-status").json(answer);
        await(form->checkRegistrationStatus());
        EXPECT_EQ(form->isRegistrationAllowed, isAllowed);
        EXPECT_EQ(form->errorMessage.get(), std::nullopt);
    }
    form->isRegistrationAllowed = false;
    server.vanish();
    await(form->checkRegistrationStatus());
    EXPECT_TRUE(form->isRegistrationAllowed);
}

TEST_F(SignInForm, KeepsItsFieldsWhenTheOtherFormIsShown) {
    fill();
    form->errorMessage = u"wrong"_s;
    form->switchForm(true);
    EXPECT_TRUE(form->showRegister);
    EXPECT_EQ(form->errorMessage.get(), std::nullopt);
    form->errorMessage = u"wrong"_s;
    form->switchForm(false);
    EXPECT_FALSE(form->showRegister);
    EXPECT_EQ(form->errorMessage.get(), std::nullopt);
    EXPECT_EQ(*form->username, u"anna"_s);
    EXPECT_EQ(*form->password, u"secret"_s);
    EXPECT_EQ(*form->email, u"anna@x.org"_s);
}

TEST_P(RegistrationFaults, NeverReachTheServer) {
    form->username = GetParam().username;
    form->password = GetParam().password;
    form->email = GetParam().email;
    form->fullName = GetParam().fullName;
    form->showRegister = true;
    await(createAccount(form));
    EXPECT_EQ(form->errorMessage.get(), GetParam().error);
    EXPECT_TRUE(form->showRegister);
    EXPECT_FALSE(form->isLoading);
    server.assertSilence();
}

INSTANTIATE_TEST_SUITE_P(, RegistrationFaults, testing::ValuesIn(registrationFaults), rowName);

TEST_F(SignInForm, SendsTheInitialMailSettingsOfAnAccount) {
    fill(u"👍🏽23456"_s);
    auto &request = expectRegister().json("{}");
    await(createAccount(form));
    EXPECT_EQ(parseJSON(request.request().body), parseJSON(R"({"username": "anna", "password": "👍🏽23456",
        "email": "anna@x.org", "full_name": "Anna Weber", "imap_port": 993, "imap_encryption": "ssl",
        "smtp_port": 587, "smtp_encryption": "tls"})"));
}

TEST_F(SignInForm, SendsTheMailSettingsThatAreSet) {
    fill();
    form->imapHost = u"imap.x.org"_s;
    form->imapUsername = u"iu"_s;
    form->imapPassword = u"ip"_s;
    form->imapEncryption = QString();
    form->smtpHost = u"smtp.x.org"_s;
    form->smtpUsername = u"su"_s;
    form->smtpPassword = u"sp"_s;
    auto &request = expectRegister().json("{}");
    await(createAccount(form));
    EXPECT_EQ(parseJSON(request.request().body), parseJSON(R"({"username": "anna", "password": "secret",
        "email": "anna@x.org", "full_name": "Anna Weber", "imap_host": "imap.x.org", "imap_port": 993,
        "imap_username": "iu", "imap_password": "ip", "imap_encryption": "", "smtp_host": "smtp.x.org",
        "smtp_port": 587, "smtp_username": "su", "smtp_password": "sp", "smtp_encryption": "tls"})"));
}

TEST_P(Ports, AreSentWhenTheyAreNumbers) {
    fill();
    form->imapPort = GetParam().text;
    auto &request = expectRegister().json("{}");
    await(createAccount(form));
    EXPECT_EQ(parseJSON(request.request().body).toObject().value("imap_port"_L1), GetParam().sent);
}

INSTANTIATE_TEST_SUITE_P(, Ports, testing::ValuesIn(ports), rowName);

TEST_P(RegistrationAnswers, DecideWhichFormIsShown) {
    fill();
    form->switchForm(true);
    expectRegister().answer(GetParam().status, GetParam().body, "application/json");
    await(createAccount(form));
    EXPECT_EQ(form->showRegister, !GetParam().error.isEmpty());
    EXPECT_EQ(form->errorMessage->value_or(QString()), GetParam().error);
    EXPECT_FALSE(form->isLoading || state->isAuthenticated);
    EXPECT_EQ(*form->password, u"secret"_s);
}

INSTANTIATE_TEST_SUITE_P(, RegistrationAnswers, testing::ValuesIn(registrationAnswers), rowName);

TEST_F(SignInForm, TakesNoRegistrationWhoseAnswerIsNotMadeOfTexts) {
    fill();
    form->switchForm(true);
    expectRegister().json(R"({"message": "Welcome", "id": 7})");
    await(createAccount(form));
    EXPECT_TRUE(form->showRegister);
    EXPECT_TRUE(form->errorMessage.get());
}

TEST_P(ServerAddresses, AreStoredWhenTheyAreOnes) {
    ServerAddressForm choice(state);
    EXPECT_EQ(*choice.address, server.address());
    choice.address = GetParam().typed;
    choice.trustsSelfSigned = true;
    const bool isAccepted = !GetParam().stored.isEmpty();
    EXPECT_EQ(choice.apply(), isAccepted);
    EXPECT_EQ(choice.errorMessage.get().has_value(), !isAccepted);
    const auto inForce = isAccepted ? GetParam().stored : server.address();
    EXPECT_EQ(UserDefaults::standard().text(u"serverURL"_s), inForce);
    EXPECT_EQ(*state->serverURL, inForce);
    EXPECT_EQ(choice.currentAddress(), inForce);
    EXPECT_EQ(UserDefaults::standard().flag(u"trustSelfSigned"_s).value_or(false), isAccepted);
    choice.reset();
    EXPECT_EQ(*choice.address, inForce);
    EXPECT_EQ(choice.trustsSelfSigned, isAccepted);
    EXPECT_EQ(choice.errorMessage.get(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(, ServerAddresses, testing::ValuesIn(addresses), rowName);
