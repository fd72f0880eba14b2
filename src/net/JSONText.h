#pragma once

#include "net/JSONRecord.h"

/// Writes values as JSON text, fields in the order of their records. A file goes straight into the text, so that a
/// large one is in memory twice at most.

/// The compact text of a list, an object or a plain value.
QByteArray jsonText(const QJsonValue &json);

/// Ends a list or an object, whose last item has a comma behind it.
void closeJSON(QByteArray &text, char bracket);

/// As Base64.
void writeJSON(QByteArray &text, const QByteArray &bytes);
void writeJSON(QByteArray &text, const QJsonObject &object);
template <JSONRecordType Record> void writeJSON(QByteArray &text, const Record &record);
template <typename T> void writeJSON(QByteArray &text, const std::vector<T> &items);

template <typename T> void writeJSON(QByteArray &text, const T &value) {
    text += jsonText(encodeJSON(value));
}

template <typename T> void writeJSON(QByteArray &text, const std::vector<T> &items) {
    text += '[';
    for (const auto &item : items) {
        writeJSON(text, item);
        text += ',';
    }
    closeJSON(text, ']');
}

template <JSONRecordType Record, typename Value>
void writeJSON(QByteArray &text, const Record &record, const JSONField<Record, Value> &field) {
    const auto &value = record.*field.member;
    const auto write = [&](const auto &present) {
        text.append('"').append(field.key).append("\":");
        writeJSON(text, present);
        text += ',';
    };
    if constexpr (!isOptional<Value>)
        write(value);
    else if (value)
        write(*value);
}

template <JSONRecordType Record> void writeJSON(QByteArray &text, const Record &record) {
    text += '{';
    std::apply([&](const auto &...field) { (writeJSON(text, record, field), ...); }, jsonFields<Record>);
    closeJSON(text, '}');
}

template <typename T> QByteArray encodeJSONText(const T &value) {
    QByteArray text;
    writeJSON(text, value);
    return text;
}
