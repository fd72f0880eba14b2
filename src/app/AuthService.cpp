#include "app/AuthService.h"

#include "net/APIClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<User> AuthService::login(QString username, QString password) {
    // Not inside the await: GCC 12 destroys an aggregate there twice.
    const LoginRequest request{username, password};
    const auto answer = co_await APIClient::shared().post<LoginResponse>(u"api/auth/login"_s, request);
    co_return answer.user;
}

QCoro::Task<bool> AuthService::registrationStatus() {
    const auto answer = co_await APIClient::shared().get<RegistrationStatusResponse>(u"api/auth/registration-status"_s);
    co_return answer.allowed;
}

QCoro::Task<> AuthService::register_(RegisterRequest request) {
    co_await APIClient::shared().post<std::map<QString, QString>>(u"api/auth/register"_s, request);
}
