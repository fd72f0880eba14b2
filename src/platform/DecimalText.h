#pragma once

#include <QString>
#include <optional>

/// A text that is wholly a signed decimal integer: one optional "+" or "-", then digits only. Absent for any other
/// text, and for a number outside 64 bits.
std::optional<qint64> decimalInteger(const QString &text);
