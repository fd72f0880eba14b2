#include "mail/EmailSource.h"

using namespace Qt::StringLiterals;

EmailSource splitSource(const QString &source) {
    constexpr auto separator = "\r\n\r\n"_L1;
    const auto end = source.indexOf(separator);
    EmailSource parts;
    parts.headers = end < 0 ? source : source.left(end);
    parts.headers.replace("\r\n"_L1, "\n"_L1);
    if (end >= 0)
        parts.body = source.mid(end + separator.size());
    return parts;
}

qsizetype headerNameLength(const QString &line) {
    return line.indexOf(u':') + 1;
}
