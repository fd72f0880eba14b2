#pragma once

#include <QJsonValue>
#include <QString>
#include <map>
#include <variant>
#include <vector>

/// Any JSON value. Numbers are 64-bit floats; decoding never fails.
struct JSONValue {
    using Array = std::vector<JSONValue>;
    using Object = std::map<QString, JSONValue>;

    std::variant<std::nullptr_t, bool, double, QString, Array, Object> kind = nullptr;

    static JSONValue fromJson(const QJsonValue &json);
    QJsonValue toJson() const;

    template <typename Kind> const Kind *as() const { return std::get_if<Kind>(&kind); }

    bool operator==(const JSONValue &) const = default;
};
