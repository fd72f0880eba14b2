#pragma once

#include "app/User.h"

struct LoginRequest {
    QString username, password;
};

struct LoginResponse {
    User user;
};

struct AuthMeResponse {
    User user;
};

struct RegistrationStatusResponse {
    bool allowed = false;
};

struct RegisterRequest {
    QString username, password, email, full_name;
    std::optional<QString> imap_host;
    std::optional<qint64> imap_port;
    std::optional<QString> imap_username, imap_password, imap_encryption;
    std::optional<QString> smtp_host;
    std::optional<qint64> smtp_port;
    std::optional<QString> smtp_username, smtp_password, smtp_encryption;
};

template <>
inline constexpr auto jsonFields<LoginRequest> = jsonRecord(jsonField("username", &LoginRequest::username),
                                                            jsonField("password", &LoginRequest::password));

template <> inline constexpr auto jsonFields<LoginResponse> = jsonRecord(jsonField("user", &LoginResponse::user));

template <> inline constexpr auto jsonFields<AuthMeResponse> = jsonRecord(jsonField("user", &AuthMeResponse::user));

template <>
inline constexpr auto
    jsonFields<RegistrationStatusResponse> = jsonRecord(jsonField("allowed", &RegistrationStatusResponse::allowed));

template <>
inline constexpr auto jsonFields<RegisterRequest> =
    jsonRecord(jsonField("username", &RegisterRequest::username), jsonField("password", &RegisterRequest::password),
               jsonField("email", &RegisterRequest::email), jsonField("full_name", &RegisterRequest::full_name),
               jsonField("imap_host", &RegisterRequest::imap_host), jsonField("imap_port", &RegisterRequest::imap_port),
               jsonField("imap_username", &RegisterRequest::imap_username),
               jsonField("imap_password", &RegisterRequest::imap_password),
               jsonField("imap_encryption", &RegisterRequest::imap_encryption),
               jsonField("smtp_host", &RegisterRequest::smtp_host), jsonField("smtp_port", &RegisterRequest::smtp_port),
               jsonField("smtp_username", &RegisterRequest::smtp_username),
               jsonField("smtp_password", &RegisterRequest::smtp_password),
               jsonField("smtp_encryption", &RegisterRequest::smtp_encryption));
