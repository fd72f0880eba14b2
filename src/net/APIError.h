#pragma once

#include "platform/Error.h"

/// What can go wrong between the program and its server, above the transport.
class APIError : public Error {
public:
    enum class Kind { serverError, invalidURL, invalidResponse, unauthorized };

    static APIError serverError(const QString &text) { return {Kind::serverError, text}; }
    static APIError invalidURL() { return {Kind::invalidURL, QStringLiteral("Invalid server URL")}; }
    static APIError invalidResponse() { return {Kind::invalidResponse, QStringLiteral("Invalid server response")}; }
    static APIError unauthorized() {
        return {Kind::unauthorized, QStringLiteral("Session expired. Please log in again.")};
    }

    Kind kind() const { return m_kind; }
    bool operator==(const APIError &other) const {
        return m_kind == other.m_kind && description() == other.description();
    }

private:
    APIError(Kind kind, const QString &text)
        : Error(text)
        , m_kind(kind) {}

    Kind m_kind;
};
