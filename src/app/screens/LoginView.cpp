#include "app/screens/LoginView.h"

#include "app/SignIn.h"
#include "app/screens/ServerForm.h"
#include "platform/Tasks.h"
#include "ui/screens/BrandMark.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Card.h"
#include "ui/screens/CrossFade.h"
#include "ui/screens/ErrorBanner.h"
#include "ui/screens/FormField.h"
#include "ui/screens/ThemeLabel.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int cardWidth = 400;

} // namespace

LoginView::LoginView(std::shared_ptr<AppState> appState, QWidget *parent)
    : MailThemeBackground(false, parent)
    , m_appState(std::move(appState)) {
    auto *server = new ServerForm(std::make_shared<ServerAddressForm>(m_appState));
    connect(server, &ServerForm::serverChanged, this, [this] {
        m_viewModel->errorMessage = std::nullopt;
        checkRegistrationStatus();
    });

    auto *column = new QWidget;
    column->setFixedWidth(cardWidth);
    auto *items = new QVBoxLayout(column);
    items->setContentsMargins(0, 24, 0, 24);
    items->setSpacing(20);
    items->addStretch(2);
    items->addWidget(makeBrand(), 0, Qt::AlignHCenter);
    items->addWidget(makeCard());
    items->addWidget(server);
    items->addStretch(3);

    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setAlignment(Qt::AlignHCenter);
    scroll->setFocusPolicy(Qt::NoFocus);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->setWidget(column);
    column->setAutoFillBackground(false);
    // In a low window the form grows out of sight when it is opened.
    connect(scroll->verticalScrollBar(), &QScrollBar::rangeChanged, scroll, [this, scroll, server] {
        if (server->isAncestorOf(focusWidget()))
            scroll->ensureWidgetVisible(server);
    });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scroll);

    observe(m_viewModel.get(), this, &LoginView::render);
    checkRegistrationStatus();
}

QWidget *LoginView::makeBrand() {
    auto *brand = new QWidget;
    auto *layout = new QHBoxLayout(brand);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addWidget(new BrandMark(QStringLiteral("envelope"), 36));
    layout->addWidget(new ThemeLabel(QStringLiteral("Corvanite"), TextStyle::title));
    return brand;
}

QWidget *LoginView::makeCard() {
    auto *card = new Card;
    m_heading = new ThemeLabel({}, TextStyle::title2);
    m_subheading = new ThemeLabel({}, TextStyle::subheadline, TextRole::secondary);
    m_error = new ErrorBanner;
    m_submit = new PrimaryButton({});
    connect(m_submit, &QPushButton::clicked, this, &LoginView::submit);

    auto *layout = card->column();
    layout->setContentsMargins(28, 24, 28, 24);
    layout->setSpacing(14);
    layout->addWidget(m_heading);
    layout->addWidget(m_subheading);
    layout->addSpacing(2);
    m_identity = makeField(tr("Username or Email"), {}, &AuthViewModel::username);
    m_password =
        makeField(tr("Password"), tr("Enter your password"), &AuthViewModel::password, FormField::Kind::secure);
    m_fullName = makeField(tr("Full Name"), {}, &AuthViewModel::fullName);
    m_username = makeField(tr("Username"), {}, &AuthViewModel::username);
    m_email = makeField(tr("Email"), {}, &AuthViewModel::email);
    m_newPassword =
        makeField(tr("Password"), tr("Min 6 characters"), &AuthViewModel::password, FormField::Kind::secure);
    for (const auto &field : m_fields)
        layout->addWidget(field.first);
    layout->addWidget(m_submit);
    layout->addWidget(m_error);
    layout->addWidget(makeSwitchLine());
    return card;
}

FormField *LoginView::makeField(const QString &label, const QString &prompt, Published<QString> AuthViewModel::*field,
                                FormField::Kind kind) {
    auto *result = new FormField(label, prompt, kind);
    connect(result, &FormField::textEdited, m_viewModel.get(),
            [this, field](const QString &text) { (*m_viewModel).*field = text; });
    connect(result, &FormField::returnPressed, this, &LoginView::submit);
    m_fields.emplace_back(result, field);
    return result;
}

QWidget *LoginView::makeSwitchLine() {
    m_switchLine = new QWidget;
    m_question = new ThemeLabel({}, TextStyle::subheadline, TextRole::secondary);
    m_switch = new LinkButton({});
    connect(m_switch, &LinkButton::clicked, m_viewModel.get(),
            [this] { m_viewModel->switchForm(!m_viewModel->showRegister); });
    auto *layout = new QHBoxLayout(m_switchLine);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(m_question);
    layout->addWidget(m_switch);
    layout->addStretch();
    return m_switchLine;
}

void LoginView::checkRegistrationStatus() {
    launch(m_viewModel->checkRegistrationStatus());
}

void LoginView::submit() {
    if (m_viewModel->isLoading)
        return;
    launch(m_viewModel->showRegister ? createAccount(m_viewModel) : signIn(m_viewModel, m_appState));
}

void LoginView::render() {
    const bool registers = m_viewModel->showRegister;
    const bool isBusy = m_viewModel->isLoading;
    if (registers != m_showsRegistration)
        fadeToOtherForm();
    m_heading->setText(registers ? tr("Create Account") : tr("Welcome back"));
    m_subheading->setText(tr("Sign in to your Corvanite account"));
    m_subheading->setVisible(!registers);
    m_submit->setText(registers ? (isBusy ? tr("Creating...") : tr("Create Account"))
                                : (isBusy ? tr("Signing in...") : tr("Sign In")));
    m_submit->setAccessibleName(m_submit->text());
    enableSubmit(!isBusy);
    m_error->setError(m_viewModel->errorMessage);
    m_question->setText(registers ? tr("Already have an account?") : tr("Don't have an account?"));
    m_switch->setText(registers ? tr("Sign in") : tr("Create one"));
    m_switch->setAccessibleName(m_switch->text());
    m_switchLine->setVisible(registers || m_viewModel->isRegistrationAllowed);
    renderFields();
}

/// The button has the focus again after a failure that it had before it was disabled.
void LoginView::enableSubmit(bool isEnabled) {
    if (isEnabled == m_submit->isEnabled())
        return;
    const bool hadFocus = m_submit->hasFocus();
    m_submit->setEnabled(isEnabled);
    if (std::exchange(m_submitHadFocus, hadFocus) && isEnabled)
        m_submit->setFocus();
}

void LoginView::renderFields() {
    const bool registers = m_viewModel->showRegister;
    for (const auto &[field, text] : m_fields) {
        field->setVisible(registers != (field == m_identity || field == m_password));
        field->setText(((*m_viewModel).*text).get());
    }
    if (std::exchange(m_showsRegistration, registers) != registers)
        focusFirstField();
}

void LoginView::fadeToOtherForm() {
    if (isVisible())
        new CrossFade(grab(), this);
}

void LoginView::focusFirstField() {
    (m_viewModel->showRegister ? m_fullName : m_identity)->lineEdit()->setFocus();
}

void LoginView::showEvent(QShowEvent *event) {
    MailThemeBackground::showEvent(event);
    focusFirstField();
}
