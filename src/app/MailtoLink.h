#pragma once

#include <QString>

/// What a `mailto:` link asks to write. Fields that it does not have are empty.
struct MailtoLink {
    QString to, subject, cc, bcc, body;

    bool operator==(const MailtoLink &) const = default;
};

/// Whatever cannot be read as a part of such a link is left out; what is not percent-encoded properly stands for
/// itself.
MailtoLink parseMailto(const QString &url);
