#pragma once

#include <QString>
#include <optional>

/// The raw text of a message in its two parts.
struct EmailSource {
    /// Lines end with "\n".
    QString headers;
    std::optional<QString> body;

    bool operator==(const EmailSource &) const = default;
};

/// Splits at the first empty line; without one everything is headers.
EmailSource splitSource(const QString &source);

/// How many characters of a header line are its name, colon included; 0 when there is none.
qsizetype headerNameLength(const QString &line);
