#pragma once

#include "app/AuthRecords.h"
#include "platform/ObservableObject.h"

#include <QCoroTask>
#include <memory>

/// The state of the sign-in screen and its two forms, sign in and create an account.
class AuthViewModel : public ObservableObject, public std::enable_shared_from_this<AuthViewModel> {
    Q_OBJECT
public:
    Published<QString> username{this}, password{this}, fullName{this}, email{this};
    Published<bool> isLoading{this, false};
    Published<std::optional<QString>> errorMessage{this};
    Published<bool> isRegistrationAllowed{this, true};
    Published<bool> showRegister{this, false};

    /// The mail servers of a new account; ports are texts as typed.
    Published<QString> imapHost{this}, imapPort{this, QStringLiteral("993")}, imapUsername{this}, imapPassword{this},
        imapEncryption{this, QStringLiteral("ssl")};
    Published<QString> smtpHost{this}, smtpPort{this, QStringLiteral("587")}, smtpUsername{this}, smtpPassword{this},
        smtpEncryption{this, QStringLiteral("tls")};
    Published<bool> showMailSettings{this, false};

    QCoro::Task<> checkRegistrationStatus();
    /// The account, or nothing with `errorMessage` set.
    QCoro::Task<std::optional<User>> login();
    /// Whether the account was made; it is not signed in by that.
    QCoro::Task<bool> register_();
    /// Goes to the other form; the fields keep what was typed.
    void switchForm(bool toRegistration);

private:
    /// The newest check of the registration status; an older one's answer counts no more.
    int m_statusCheck = 0;

    std::optional<QString> registrationFault() const;
    RegisterRequest registerRequest() const;
};
