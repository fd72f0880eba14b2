#include "compose/EditorScript.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString escapedCharacter(QChar character) {
    if (character == u'\r')
        return {};
    return character == u'\n' ? u"\\n"_s : u"\\"_s + character;
}

/// For a place between single quotes. In one pass and by stretches: a message can hold megabytes of pictures.
QString escaped(const QString &text) {
    const auto isSpecial = [](QChar character) {
        return character == u'\\' || character == u'\'' || character == u'\n' || character == u'\r';
    };
    QString result;
    result.reserve(text.size() + text.size() / 16);
    for (auto start = text.begin(); start != text.end();) {
        const auto end = std::find_if(start, text.end(), isSpecial);
        result += QStringView(start, end);
        if (end != text.end())
            result += escapedCharacter(*end);
        start = end == text.end() ? end : end + 1;
    }
    return result;
}

QString call(const QString &function, const QString &argument) {
    return function + u"('"_s + argument + u"');"_s;
}

} // namespace

QString EditorScript::setContent(const QString &html) {
    return call(u"setContent"_s, escaped(html));
}

QString EditorScript::fetchContent(int number) {
    return u"fetchContent(%1);"_s.arg(number);
}

QString EditorScript::command(const QString &name) {
    return u"execCmd('%1', null);"_s.arg(name);
}

QString EditorScript::createLink(const QString &url) {
    return u"execCmd('createLink', '%1');"_s.arg(escaped(url));
}

QString EditorScript::setFontSize(const QString &size) {
    return call(u"setFontSize"_s, size);
}

QString EditorScript::setTextColor(const QString &color) {
    return call(u"setTextColor"_s, color);
}

QString EditorScript::setHighlightColor(const QString &color) {
    return call(u"setHighlightColor"_s, color);
}

QString EditorScript::insertRule() {
    return u"insertHR();"_s;
}

QString EditorScript::insertImage(const QString &url) {
    return call(u"insertImageBase64"_s, escaped(url));
}

QString EditorScript::normalizedAddress(const QString &url) {
    return u"new URL('"_s + escaped(url) + u"').href"_s;
}
