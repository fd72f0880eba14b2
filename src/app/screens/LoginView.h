#pragma once

#include "app/AuthViewModel.h"
#include "ui/screens/FormField.h"
#include "ui/screens/MailThemeBackground.h"

class AppState;
class ErrorBanner;
class LinkButton;
class PrimaryButton;
class ThemeLabel;

/// The card with which a person signs in or creates an account, over the theme's background.
class LoginView final : public MailThemeBackground {
    Q_OBJECT
public:
    explicit LoginView(std::shared_ptr<AppState> appState, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;

private:
    QWidget *makeBrand();
    QWidget *makeCard();
    QWidget *makeSwitchLine();
    FormField *makeField(const QString &label, const QString &prompt, Published<QString> AuthViewModel::*field,
                         FormField::Kind kind = FormField::Kind::plain);
    void checkRegistrationStatus();
    void submit();
    void render();
    void enableSubmit(bool isEnabled);
    void renderFields();
    /// Lets what is seen now fade out over what the other form will look like.
    void fadeToOtherForm();
    void focusFirstField();

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<AuthViewModel> m_viewModel = std::make_shared<AuthViewModel>();
    ThemeLabel *m_heading, *m_subheading, *m_question;
    std::vector<std::pair<FormField *, Published<QString> AuthViewModel::*>> m_fields;
    FormField *m_identity, *m_password, *m_fullName, *m_username, *m_email, *m_newPassword;
    PrimaryButton *m_submit;
    ErrorBanner *m_error;
    QWidget *m_switchLine;
    LinkButton *m_switch;
    bool m_showsRegistration = false;
    bool m_submitHadFocus = false;
};
