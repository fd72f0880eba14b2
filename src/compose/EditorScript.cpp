#include "compose/EditorScript.h"

using namespace Qt::StringLiterals;

namespace {

/// For a place between single quotes. In one pass: a message can hold megabytes of pictures.
QString escaped(const QString &text) {
    QString result;
    result.reserve(text.size() + text.size() / 16);
    for (const auto character : text) {
        if (character == u'\n')
            result += u"\\n"_s;
        else if (character == u'\\' || character == u'\'')
            (result += u'\\') += character;
        else if (character != u'\r')
            result += character;
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
