#include "mail/HTMLPlainText.h"

#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString replaced(QString text, const QString &pattern, const QString &replacement) {
    const QRegularExpression expression(pattern, QRegularExpression::CaseInsensitiveOption);
    return text.replace(expression, replacement);
}

QString withoutInvisibleParts(const QString &html) {
    return replaced(html, uR"(<!--.*?(?:-->|$)|<(script|style|head|title)\b.*?(?:</\1\s*>|$))"_s.prepend(u"(?s)"_s),
                    {});
}

QString withLineBreaks(const QString &html) {
    const auto oneLine = replaced(html, uR"(\s+)"_s, u" "_s);
    const auto lines =
        replaced(oneLine, uR"(<br\b[^>]*>|</?(?:div|tr|li|h[1-6]|table|blockquote|pre|hr)\b[^>]*>)"_s, u"\n"_s);
    const auto cells = replaced(lines, uR"(</t[dh]\s*>)"_s, u" "_s);
    return replaced(cells, uR"(</?(?:p|ul|ol)\b[^>]*>)"_s, u"\n\n"_s);
}

QString character(const QString &entity) {
    static const QHash<QString, QString> named = {
        {u"amp"_s, u"&"_s},   {u"lt"_s, u"<"_s},     {u"gt"_s, u">"_s},    {u"quot"_s, u"\""_s}, {u"apos"_s, u"'"_s},
        {u"nbsp"_s, u" "_s},  {u"hellip"_s, u"…"_s}, {u"ndash"_s, u"–"_s}, {u"mdash"_s, u"—"_s}, {u"copy"_s, u"©"_s},
        {u"euro"_s, u"€"_s},  {u"bull"_s, u"•"_s},   {u"zwnj"_s, {}},      {u"shy"_s, {}},       {u"rsquo"_s, u"’"_s},
        {u"lsquo"_s, u"‘"_s}, {u"ldquo"_s, u"“"_s},  {u"rdquo"_s, u"”"_s}};
    if (!entity.startsWith(u'#'))
        return named.value(entity, u'&' + entity + u';');
    const bool isHexadecimal = entity.startsWith(u"#x"_s, Qt::CaseInsensitive);
    const auto code = entity.mid(isHexadecimal ? 2 : 1).toUInt(nullptr, isHexadecimal ? 16 : 10);
    const char32_t point = code;
    return code == 0 || code > QChar::LastValidCodePoint ? QString() : QString::fromUcs4(&point, 1);
}

QString withCharacters(const QString &text) {
    static const QRegularExpression entity(u"&(#\\d+|#[xX][0-9a-fA-F]+|[a-zA-Z]+);"_s);
    QString result;
    qsizetype copied = 0;
    for (auto entities = entity.globalMatch(text); entities.hasNext();) {
        const auto match = entities.next();
        result += QStringView(text).mid(copied, match.capturedStart() - copied);
        result += character(match.captured(1));
        copied = match.capturedEnd();
    }
    result += QStringView(text).mid(copied);
    return result;
}

} // namespace

QString plainTextFromHTML(const QString &html) {
    const auto lines = withLineBreaks(withoutInvisibleParts(html));
    const auto words = withCharacters(replaced(lines, u"<[^>]*>"_s, {}));
    return replaced(replaced(words, u"[ \t]*\n[ \t]*"_s, u"\n"_s), u"\n{3,}"_s, u"\n\n"_s).trimmed();
}
