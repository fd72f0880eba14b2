#include "send/SMTPSending.h"

#include "http/APIError.h"

#include <algorithm>

namespace {

std::string wordsOf(const SMTPReply &reply) {
    return std::to_string(reply.code) + " " + reply.text;
}

void require(const SMTPReply &reply, const std::string &what) {
    if (!reply.isPositive())
        throw APIError(502, "The mail server refused " + what + ": " + wordsOf(reply));
}

void greet(SMTPConnection &connection) {
    require(connection.readReply(), "the connection");
    if (!connection.command("EHLO localhost").isPositive())
        require(connection.command("HELO localhost"), "the greeting");
}

/// Asks for each recipient, so that the refusal names all whom the server does not take.
void requireRecipients(SMTPConnection &connection, const std::vector<std::string> &recipients) {
    std::string refused;
    for (const auto &recipient : recipients) {
        const auto reply = connection.command("RCPT TO:<" + recipient + ">");
        if (!reply.isPositive())
            refused += (refused.empty() ? "" : "; ") + recipient + " (" + wordsOf(reply) + ")";
    }
    if (refused.empty())
        return;
    connection.command("QUIT");
    throw APIError(502, "Nothing was sent, because the mail server refused " + refused);
}

/// RFC 5321, 4.5.2: a dot at the beginning of a line is doubled, one alone ends the message.
std::string withStuffedDots(const std::string &message) {
    std::string lines;
    lines.reserve(message.size() + message.size() / 64);
    for (std::size_t start = 0; start < message.size();) {
        const auto end = std::min(message.find("\r\n", start), message.size() - 2) + 2;
        lines.append(message[start] == '.' ? "." : "").append(message, start, end - start);
        start = end;
    }
    return lines + ".\r\n";
}

} // namespace

void sendBySMTP(const SMTPServer &server, std::chrono::milliseconds patience, const SMTPEnvelope &envelope,
                const std::string &message) {
    SMTPConnection connection(server, patience);
    greet(connection);
    require(connection.command("MAIL FROM:<" + envelope.sender + ">"), "the sender " + envelope.sender);
    requireRecipients(connection, envelope.recipients);
    require(connection.command("DATA"), "the message");
    connection.write(withStuffedDots(message));
    require(connection.readReply(), "the message");
    try {
        connection.command("QUIT");
    } catch (const APIError &) {
        // The message is taken; a server that hangs up early changes nothing about that.
    }
}
