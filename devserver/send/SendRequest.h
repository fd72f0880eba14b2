#pragma once

#include "accounts/AccountStore.h"
#include "http/APIRequest.h"
#include "mailbox/Mailbox.h"
#include "send/OutgoingMessage.h"

/// The message that a request asks to send, with the files that it names by reference fetched from `mailbox`. What
/// cannot be sent fails with an APIError that says why: 400, 403 for a foreign sender address, 404 for a file that is
/// gone, 413 for too much.
OutgoingMessage readSendRequest(const APIRequest &request, AccountStore &accounts, Mailbox &mailbox);
