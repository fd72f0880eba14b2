#pragma once

#include <stdexcept>
#include <string>

/// A failure that the client is told: its status and the text under "message".
class APIError : public std::runtime_error {
public:
    APIError(int status, const std::string &message)
        : std::runtime_error(message)
        , m_status(status) {}

    int status() const { return m_status; }

private:
    int m_status;
};
