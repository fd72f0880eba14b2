#pragma once

#include "net/JSONValue.h"
#include "platform/Error.h"

#include <QJsonArray>
#include <QJsonObject>
#include <optional>
#include <tuple>

/// A JSON text that does not have the form of the record it is read as; the text names the place and what was expected.
class DecodingError : public Error {
public:
    using Error::Error;
};

/// One field of a record: its JSON key and its member.
template <typename Record, typename Value> struct JSONField {
    const char *key;
    Value Record::*member;
};

template <typename Record, typename Value>
constexpr JSONField<Record, Value> jsonField(const char *key, Value Record::*member) {
    return {key, member};
}

template <typename... Fields> constexpr std::tuple<Fields...> jsonRecord(Fields... fields) {
    return {fields...};
}

/// The whole of a record's decoding and encoding: a tuple of `jsonField`, in the order of the wire. A field that is
/// not optional is required; an optional one may be absent or null, but of no other kind, and is left out when unset.
template <typename Record> inline constexpr std::nullptr_t jsonFields = nullptr;

template <typename T>
concept JSONRecordType = !std::is_same_v<std::remove_cvref_t<decltype(jsonFields<T>)>, std::nullptr_t>;

/// Where in a JSON text the decoder stands; spelt out only when something is wrong there.
struct JSONPath {
    const JSONPath *parent = nullptr;
    const char *key = nullptr;
    qsizetype index = -1;

    QString text() const;
    [[noreturn]] void fail(const char *expected) const;
};

/// How a type is read from and written to JSON. A record that is read leniently specialises it.
template <typename T> struct JSONCodec;

template <typename T> T decodeJSON(const QJsonValue &json, const JSONPath &path = {}) {
    return JSONCodec<T>::decode(json, path);
}

/// Of plain values and lists and maps of them. What holds records becomes text at once, by `encodeJSONText`.
template <typename T> QJsonValue encodeJSON(const T &value) {
    return JSONCodec<T>::encode(value);
}

/// The decoded value of a whole JSON text; fails with a `DecodingError`.
template <typename T> T decodeJSONText(const QByteArray &text);
QJsonValue parseJSON(const QByteArray &text);

template <typename T> T decodeJSONText(const QByteArray &text) {
    return decodeJSON<T>(parseJSON(text));
}

template <> struct JSONCodec<QString> {
    static QString decode(const QJsonValue &json, const JSONPath &path);
    static QJsonValue encode(const QString &value) { return value; }
};

template <> struct JSONCodec<bool> {
    static bool decode(const QJsonValue &json, const JSONPath &path);
    static QJsonValue encode(bool value) { return value; }
};

template <> struct JSONCodec<double> {
    static double decode(const QJsonValue &json, const JSONPath &path);
    static QJsonValue encode(double value) { return value; }
};

/// Accepts 3 and 3.0, not 3.5.
template <> struct JSONCodec<qint64> {
    static qint64 decode(const QJsonValue &json, const JSONPath &path);
    static QJsonValue encode(qint64 value) { return value; }
};

template <> struct JSONCodec<JSONValue> {
    static JSONValue decode(const QJsonValue &json, const JSONPath &) { return JSONValue::fromJson(json); }
    static QJsonValue encode(const JSONValue &value) { return value.toJson(); }
};

template <typename T> struct JSONCodec<std::vector<T>> {
    static std::vector<T> decode(const QJsonValue &json, const JSONPath &path) {
        if (!json.isArray())
            path.fail("a list");
        const auto array = json.toArray();
        std::vector<T> items;
        items.reserve(array.size());
        for (qsizetype index = 0; index < array.size(); ++index)
            items.push_back(decodeJSON<T>(array.at(index), {&path, nullptr, index}));
        return items;
    }

    static QJsonValue encode(const std::vector<T> &items) {
        QJsonArray array;
        for (const auto &item : items)
            array.append(encodeJSON(item));
        return array;
    }
};

template <typename T> struct JSONCodec<std::map<QString, T>> {
    static std::map<QString, T> decode(const QJsonValue &json, const JSONPath &path) {
        if (!json.isObject())
            path.fail("an object");
        const auto object = json.toObject();
        std::map<QString, T> members;
        for (auto member = object.begin(); member != object.end(); ++member)
            members.emplace(member.key(), decodeJSON<T>(member.value(), {&path, member.key().toUtf8().constData()}));
        return members;
    }

    static QJsonValue encode(const std::map<QString, T> &members) {
        QJsonObject object;
        for (const auto &[key, value] : members)
            object.insert(key, encodeJSON(value));
        return object;
    }
};

template <typename T> inline constexpr bool isOptional = false;
template <typename T> inline constexpr bool isOptional<std::optional<T>> = true;

template <JSONRecordType Record> struct JSONCodec<Record> {
    static Record decode(const QJsonValue &json, const JSONPath &path) {
        if (!json.isObject())
            path.fail("an object");
        const auto object = json.toObject();
        Record record;
        std::apply([&](const auto &...field) { (readField(record, object, field, path), ...); }, jsonFields<Record>);
        return record;
    }

private:
    template <typename Value>
    static void readField(Record &record, const QJsonObject &object, const JSONField<Record, Value> &field,
                          const JSONPath &path) {
        const auto json = object.value(QLatin1StringView(field.key));
        const JSONPath here{&path, field.key};
        if constexpr (isOptional<Value>) {
            if (!json.isUndefined() && !json.isNull())
                record.*field.member = decodeJSON<typename Value::value_type>(json, here);
        } else {
            record.*field.member = decodeJSON<Value>(json, here);
        }
    }
};
