#include "app/MailtoLink.h"

#include <QMap>
#include <QRegularExpression>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {

const auto scheme = "mailto:"_L1;

QString percentDecoded(const QString &text) {
    static const QRegularExpression malformed(u"%(?![0-9A-Fa-f]{2})"_s);
    if (text.contains(malformed))
        return text;
    QStringDecoder decoder(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QString decoded = decoder(QByteArray::fromPercentEncoding(text.toUtf8()));
    return decoder.hasError() ? text : decoded;
}

/// By lower-cased key; of two with the same key the later one.
QMap<QString, QString> headerFields(const QString &query) {
    QMap<QString, QString> fields;
    for (const auto &field : query.split(u'&', Qt::SkipEmptyParts)) {
        const auto equals = field.indexOf(u'=');
        if (equals > 0 && equals + 1 < field.size())
            fields[field.first(equals).toLower()] = percentDecoded(field.sliced(equals + 1));
    }
    return fields;
}

} // namespace

MailtoLink parseMailto(const QString &url) {
    const auto start = url.indexOf(scheme, 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    const auto content = url.sliced(start + scheme.size());
    const auto fields = headerFields(content.section(u'?', 1));
    return {.to = percentDecoded(content.section(u'?', 0, 0)),
            .subject = fields[u"subject"_s],
            .cc = fields[u"cc"_s],
            .bcc = fields[u"bcc"_s],
            .body = fields[u"body"_s]};
}
