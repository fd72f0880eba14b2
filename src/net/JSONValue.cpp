#include "net/JSONValue.h"

#include <QJsonArray>
#include <QJsonObject>

JSONValue JSONValue::fromJson(const QJsonValue &json) {
    switch (json.type()) {
    case QJsonValue::Bool:
        return {json.toBool()};
    case QJsonValue::Double:
        return {json.toDouble()};
    case QJsonValue::String:
        return {json.toString()};
    case QJsonValue::Array: {
        Array items;
        for (const auto &item : json.toArray())
            items.push_back(fromJson(item));
        return {std::move(items)};
    }
    case QJsonValue::Object: {
        Object members;
        const auto object = json.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            members.emplace(member.key(), fromJson(member.value()));
        return {std::move(members)};
    }
    default:
        return {};
    }
}

namespace {

struct ToJson {
    QJsonValue operator()(std::nullptr_t) const { return QJsonValue::Null; }
    QJsonValue operator()(bool flag) const { return flag; }
    QJsonValue operator()(double number) const { return number; }
    QJsonValue operator()(const QString &text) const { return text; }

    QJsonValue operator()(const JSONValue::Array &items) const {
        QJsonArray array;
        for (const auto &item : items)
            array.append(item.toJson());
        return array;
    }

    QJsonValue operator()(const JSONValue::Object &members) const {
        QJsonObject object;
        for (const auto &[key, value] : members)
            object.insert(key, value.toJson());
        return object;
    }
};

} // namespace

QJsonValue JSONValue::toJson() const {
    return std::visit(ToJson(), kind);
}
