#pragma once

#include <QJsonValue>
#include <optional>

/// The whole number that a JSON number stands for, 3 and 3.0 alike; absent for any other value and outside 64 bits.
inline std::optional<qint64> exactInteger(const QJsonValue &json) {
    // What is no whole number reads as the given default.
    const auto number = json.toInteger(0);
    return number == json.toInteger(1) ? std::optional(number) : std::nullopt;
}
