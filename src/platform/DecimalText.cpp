#include "platform/DecimalText.h"

#include <QRegularExpression>

std::optional<qint64> decimalInteger(const QString &text) {
    static const QRegularExpression signedDecimal(QStringLiteral("\\A[+-]?[0-9]+\\z"));
    bool fits = false;
    const auto integer = text.toLongLong(&fits);
    return fits && signedDecimal.match(text).hasMatch() ? std::optional(integer) : std::nullopt;
}
