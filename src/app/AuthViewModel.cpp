#include "app/AuthViewModel.h"

#include "app/AuthService.h"
#include "platform/DecimalText.h"
#include "platform/Error.h"

#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

constexpr int shortestPassword = 6;

/// Characters as a person sees them.
int characterCount(const QString &text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

std::optional<QString> unlessEmpty(const QString &text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

} // namespace

QCoro::Task<> AuthViewModel::checkRegistrationStatus() {
    const auto self = shared_from_this();
    const auto check = ++m_statusCheck;
    bool isAllowed = true;
    try {
        const bool answer = co_await AuthService::registrationStatus();
        isAllowed = answer;
    } catch (const std::exception &) {
        // The offer stays; the server will say when the person takes it.
    }
    if (check == m_statusCheck)
        isRegistrationAllowed = isAllowed;
}

QCoro::Task<std::optional<User>> AuthViewModel::login() {
    const auto self = shared_from_this();
    if (username->isEmpty() || password->isEmpty()) {
        errorMessage = u"Please enter username and password"_s;
        co_return std::nullopt;
    }
    isLoading = true;
    errorMessage = std::nullopt;
    std::optional<User> user;
    try {
        const auto signedIn = co_await AuthService::login(username, password);
        user = signedIn;
    } catch (...) {
        errorMessage = errorText(std::current_exception());
    }
    isLoading = false;
    co_return user;
}

std::optional<QString> AuthViewModel::registrationFault() const {
    if (username->isEmpty() || password->isEmpty() || email->isEmpty() || fullName->isEmpty())
        return u"All fields are required"_s;
    if (characterCount(password) < shortestPassword)
        return u"Password must be at least 6 characters"_s;
    return std::nullopt;
}

RegisterRequest AuthViewModel::registerRequest() const {
    return {.username = username,
            .password = password,
            .email = email,
            .full_name = fullName,
            .imap_host = unlessEmpty(imapHost),
            .imap_port = decimalInteger(imapPort),
            .imap_username = unlessEmpty(imapUsername),
            .imap_password = unlessEmpty(imapPassword),
            .imap_encryption = imapEncryption,
            .smtp_host = unlessEmpty(smtpHost),
            .smtp_port = decimalInteger(smtpPort),
            .smtp_username = unlessEmpty(smtpUsername),
            .smtp_password = unlessEmpty(smtpPassword),
            .smtp_encryption = smtpEncryption};
}

QCoro::Task<bool> AuthViewModel::register_() {
    const auto self = shared_from_this();
    if (const auto fault = registrationFault()) {
        errorMessage = fault;
        co_return false;
    }
    isLoading = true;
    errorMessage = std::nullopt;
    bool made = false;
    try {
        co_await AuthService::register_(registerRequest());
        made = true;
    } catch (...) {
        errorMessage = errorText(std::current_exception());
    }
    isLoading = false;
    co_return made;
}

void AuthViewModel::switchForm(bool toRegistration) {
    showRegister = toRegistration;
    errorMessage = std::nullopt;
}
