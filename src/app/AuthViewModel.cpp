#include "app/AuthViewModel.h"

#include "app/AuthService.h"
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

std::optional<qint64> port(const QString &text) {
    const auto digits = text.startsWith(u'+') || text.startsWith(u'-') ? text.sliced(1) : text;
    for (const auto digit : digits)
        if (digit < u'0' || digit > u'9')
            return std::nullopt;
    bool isNumber = false;
    const auto number = text.toLongLong(&isNumber);
    return isNumber ? std::optional<qint64>(number) : std::nullopt;
}

} // namespace

QCoro::Task<> AuthViewModel::checkRegistrationStatus() {
    const auto self = shared_from_this();
    try {
        const bool allowed = co_await AuthService().registrationStatus();
        isRegistrationAllowed = allowed;
    } catch (const std::exception &) {
        isRegistrationAllowed = true;
    }
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
        const auto signedIn = co_await AuthService().login(username, password);
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
            .imap_port = port(imapPort),
            .imap_username = unlessEmpty(imapUsername),
            .imap_password = unlessEmpty(imapPassword),
            .imap_encryption = imapEncryption,
            .smtp_host = unlessEmpty(smtpHost),
            .smtp_port = port(smtpPort),
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
        co_await AuthService().register_(registerRequest());
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
