#pragma once

#include "app/AuthRecords.h"

#include <QCoroTask>

/// The endpoints of sign-in and registration. Stateless.
struct AuthService {
    QCoro::Task<User> login(QString username, QString password) const;
    /// Whether the server takes new accounts.
    QCoro::Task<bool> registrationStatus() const;
    QCoro::Task<> register_(RegisterRequest request) const;
};
