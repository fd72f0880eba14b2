#include "net/JSONRecord.h"

#include "platform/JSONNumber.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

QString JSONPath::text() const {
    auto text = parent ? parent->text() : QString();
    if (key)
        text += (text.isEmpty() ? u""_s : u"."_s) + QString::fromUtf8(key);
    if (index >= 0)
        text += u"[%1]"_s.arg(index);
    return text;
}

void JSONPath::fail(const char *expected) const {
    const auto place = text();
    throw DecodingError(
        u"%1: expected %2"_s.arg(place.isEmpty() ? u"The answer"_s : place, QString::fromUtf8(expected)));
}

QJsonValue parseJSON(const QByteArray &text) {
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        throw DecodingError(u"The server's answer is no valid JSON: %1"_s.arg(error.errorString()));
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

QString JSONCodec<QString>::decode(const QJsonValue &json, const JSONPath &path) {
    if (!json.isString())
        path.fail("a text");
    return json.toString();
}

bool JSONCodec<bool>::decode(const QJsonValue &json, const JSONPath &path) {
    if (!json.isBool())
        path.fail("true or false");
    return json.toBool();
}

double JSONCodec<double>::decode(const QJsonValue &json, const JSONPath &path) {
    if (!json.isDouble())
        path.fail("a number");
    return json.toDouble();
}

qint64 JSONCodec<qint64>::decode(const QJsonValue &json, const JSONPath &path) {
    if (!json.isDouble())
        path.fail("a number");
    const auto number = exactInteger(json);
    if (!number)
        path.fail("a whole number");
    return *number;
}
