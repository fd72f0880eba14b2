#include "app/User.h"

#include "platform/DecimalText.h"

#include <QRegularExpression>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

QString decimalText(double number) {
    const auto text = QString::number(number, 'f', QLocale::FloatingPointShortest);
    return text.contains(u'.') ? text : text + ".0"_L1;
}

std::optional<QString> textFrom(const JSONValue &value) {
    if (const auto *text = value.as<QString>())
        return text->isEmpty() ? std::nullopt : std::optional(*text);
    if (const auto *number = value.as<double>())
        return decimalText(*number);
    if (const auto *flag = value.as<bool>())
        return *flag ? u"true"_s : u"false"_s;
    return std::nullopt;
}

std::optional<qint64> wholePart(double number) {
    constexpr double limit = 9223372036854775808.0;
    const auto whole = std::trunc(number);
    return whole >= -limit && whole < limit ? std::optional(qint64(whole)) : std::nullopt;
}

std::optional<double> floatFrom(const QString &text) {
    static const QRegularExpression decimal(u"\\A[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?\\z"_s);
    return decimal.match(text).hasMatch() ? std::optional(text.toDouble()) : std::nullopt;
}

void convert(const JSONValue &value, QString &field) {
    field = textFrom(value).value_or(QString());
}

void convert(const JSONValue &value, std::optional<QString> &field) {
    field = textFrom(value);
}

void convert(const JSONValue &value, std::optional<bool> &field) {
    if (const auto *text = value.as<QString>())
        field = *text == "true"_L1;
    else if (const auto *number = value.as<double>())
        field = *number != 0;
    else if (const auto *flag = value.as<bool>())
        field = *flag;
}

void convert(const JSONValue &value, std::optional<qint64> &field) {
    if (const auto *text = value.as<QString>())
        field = decimalInteger(*text);
    else if (const auto *number = value.as<double>())
        field = wholePart(*number);
}

void convert(const JSONValue &value, std::optional<double> &field) {
    if (const auto *text = value.as<QString>())
        field = floatFrom(*text);
    else if (const auto *number = value.as<double>())
        field = *number;
}

void convert(const JSONValue &value, std::optional<std::vector<QString>> &field) {
    const auto *elements = value.as<JSONValue::Array>();
    if (!elements)
        return;
    field.emplace();
    for (const auto &element : *elements)
        if (auto text = textFrom(element))
            field->push_back(std::move(*text));
}

template <typename Record, typename Fields>
void convertFields(const JSONValue::Object &object, const Fields &fields, Record &record);

void convert(const JSONValue &value, std::optional<FolderMapping> &field) {
    if (const auto *object = value.as<JSONValue::Object>())
        convertFields(*object, jsonFields<FolderMapping>, field.emplace());
}

template <typename Record, typename Fields>
void convertFields(const JSONValue::Object &object, const Fields &fields, Record &record) {
    const auto convertField = [&](const auto &field) {
        const auto member = object.find(QString::fromLatin1(field.key));
        if (member != object.end())
            convert(member->second, record.*field.member);
    };
    std::apply([&](const auto &...field) { (convertField(field), ...); }, fields);
}

constexpr auto userFields = jsonRecord(
    jsonField("_id", &User::_id), jsonField("username", &User::username), jsonField("email", &User::email),
    jsonField("full_name", &User::full_name), jsonField("display_name", &User::display_name),
    jsonField("avatar_color", &User::avatar_color), jsonField("avatar", &User::avatar), jsonField("role", &User::role),
    jsonField("active", &User::active), jsonField("theme", &User::theme), jsonField("signature", &User::signature),
    jsonField("ai_provider", &User::ai_provider), jsonField("ai_model", &User::ai_model),
    jsonField("has_ai_key", &User::has_ai_key), jsonField("has_imap_password", &User::has_imap_password),
    jsonField("has_smtp_password", &User::has_smtp_password), jsonField("has_mail_config", &User::has_mail_config),
    jsonField("allow_custom_from", &User::allow_custom_from),
    jsonField("ollama_local_available", &User::ollama_local_available),
    jsonField("vacation_enabled", &User::vacation_enabled), jsonField("vacation_subject", &User::vacation_subject),
    jsonField("vacation_message", &User::vacation_message), jsonField("folder_mapping", &User::folder_mapping),
    jsonField("folder_order", &User::folder_order), jsonField("impersonating", &User::impersonating),
    jsonField("impersonated_by", &User::impersonated_by), jsonField("imap_host", &User::imap_host),
    jsonField("imap_port", &User::imap_port), jsonField("imap_username", &User::imap_username),
    jsonField("imap_encryption", &User::imap_encryption), jsonField("smtp_host", &User::smtp_host),
    jsonField("smtp_port", &User::smtp_port), jsonField("smtp_username", &User::smtp_username),
    jsonField("smtp_encryption", &User::smtp_encryption), jsonField("ai_auto_spam", &User::ai_auto_spam),
    jsonField("ai_auto_spam_threshold", &User::ai_auto_spam_threshold),
    jsonField("ai_auto_reply_enabled", &User::ai_auto_reply_enabled), jsonField("ai_ollama_url", &User::ai_ollama_url),
    jsonField("emails_per_page", &User::emails_per_page),
    jsonField("reply_forward_attachments", &User::reply_forward_attachments));

} // namespace

User JSONCodec<User>::decode(const QJsonValue &json, const JSONPath &) {
    const auto value = JSONValue::fromJson(json);
    const auto *object = value.as<JSONValue::Object>();
    if (!object)
        throw DecodingError(u"Expected object"_s);
    User user;
    convertFields(*object, userFields, user);
    return user;
}

QJsonValue JSONCodec<User>::encode(const User &user) {
    return QJsonObject{{u"_id"_s, user._id},
                       {u"username"_s, user.username},
                       {u"email"_s, user.email},
                       {u"full_name"_s, user.full_name}};
}
