#include "mail/EmailRecords.h"

#include "platform/DecimalText.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> firstAddress(const QString &header) {
    static const QRegularExpression address(u"[\\w.+-]+@[\\w.-]+\\.\\w+"_s,
                                            QRegularExpression::UseUnicodePropertiesOption);
    const auto match = address.match(header);
    return match.hasMatch() ? std::optional(match.captured()) : std::nullopt;
}

QString addressIn(const std::optional<QString> &header) {
    return header ? firstAddress(*header).value_or(*header) : QString();
}

/// The name before an address in angle brackets; absent when the header has no such address.
std::optional<QString> nameBeforeBracket(const QString &header) {
    const auto bracket = header.indexOf(u'<');
    if (bracket < 0)
        return std::nullopt;
    return header.first(bracket).trimmed().remove(u'"');
}

bool hasText(const std::optional<QString> &text) {
    return text && !text->isEmpty();
}

} // namespace

QString EmailSummary::senderAddress() const {
    return addressIn(from);
}

QString EmailSummary::recipientAddress() const {
    return addressIn(to);
}

QString EmailSummary::senderName() const {
    return from ? nameBeforeBracket(*from).value_or(*from) : u"Unknown"_s;
}

QString EmailSummary::recipientName() const {
    if (!to)
        return u"Unknown"_s;
    if (const auto name = nameBeforeBracket(*to))
        return *name;
    return addressIn(to);
}

QString addressDomain(const QString &address) {
    const auto at = address.indexOf(u'@');
    return at < 0 ? QString() : address.sliced(at + 1);
}

QString EmailAddress::plainAddress() const {
    return email.value_or(address.value_or(QString()));
}

QString EmailAddress::displayName() const {
    return hasText(name) ? *name : plainAddress();
}

QString EmailAddress::headerText() const {
    return hasText(name) ? *name + " <"_L1 + plainAddress() + u'>' : plainAddress();
}

QString EmailAttachment::id() const {
    return partNum.value_or(u"0"_s) + u'_' + filename.value_or(QString());
}

QString EmailAttachment::mimeType() const {
    return type.value_or(contentType.value_or(u"application/octet-stream"_s));
}

bool EmailAttachment::isInlineImage() const {
    return mimeType().trimmed().toLower().startsWith("image/"_L1) && !cid.value_or(QString()).trimmed().isEmpty();
}

qint64 EmailAttachment::partNumber() const {
    const auto number = partNum ? decimalInteger(*partNum) : std::nullopt;
    return number.value_or(part.value_or(0));
}

QString EmailAttachment::partQueryValue() const {
    return partNum.value_or(QString::number(partNumber()));
}
