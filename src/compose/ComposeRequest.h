#pragma once

#include "mail/EmailRecords.h"

#include <memory>

class ComposeViewModel;

/// What the message is to begin with that somebody has asked to write.
struct ComposeRequest {
    std::optional<EmailDetail> replyTo;
    bool replyAll = false;
    std::optional<EmailDetail> forward;
    /// The fields of a `mailto:` link.
    QString to, subject, cc, bcc, body;
    /// An unsent message that is opened again.
    std::shared_ptr<ComposeViewModel> unsent;
};
