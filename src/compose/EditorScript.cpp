#include "compose/EditorScript.h"

using namespace Qt::StringLiterals;

namespace {

QString escaped(QString text) {
    return text.replace(u"\\"_s, u"\\\\"_s).replace(u"'"_s, u"\\'"_s).replace(u"\n"_s, u"\\n"_s).remove(u'\r');
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
