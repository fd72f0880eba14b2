#pragma once

#include "send/SMTPConnection.h"

#include <vector>

struct SMTPEnvelope {
    std::string sender;
    std::vector<std::string> recipients;
};

/// Hands a message with wire line ends to the server, for all recipients or for none. A refusal fails with an APIError
/// of status 502 that holds the server's words.
void sendBySMTP(const SMTPServer &server, std::chrono::milliseconds patience, const SMTPEnvelope &envelope,
                const std::string &message);
