#pragma once

#include "app/AuthRecords.h"

#include <QCoroTask>

/// The endpoints of sign-in and registration. Holds nothing; each operation fails as `APIClient` does.
class AuthService {
public:
    static QCoro::Task<User> login(QString username, QString password);
    /// Whether the server takes new accounts.
    static QCoro::Task<bool> registrationStatus();
    static QCoro::Task<> register_(RegisterRequest request);
};
