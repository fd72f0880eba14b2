#pragma once

#include "send/OutgoingMessage.h"

/// The message as it goes over the wire: seven-bit MIME with CR LF at the ends of its lines. Names nobody of `bcc`.
std::string composeMessage(const OutgoingMessage &outgoing);
