#include "mail/EmailHTMLPage.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString pageTemplate = uR"(<!DOCTYPE html>
<html><head>
<meta name="color-scheme" content="%1">
<style>
    html { color-scheme: %1; background: %2; }
    body { font-family: -apple-system, system-ui, sans-serif; font-size: 14px;
           color: %3; background: %2;
           padding: 16px; margin: 0; word-wrap: break-word; line-height: 1.6; }
    img { max-width: 100% !important; height: auto !important; }
    a { color: %4; }
    pre, code { white-space: pre-wrap; word-break: break-all; }
    table { max-width: 100%; }
    %5
</style>
</head><body>)"_s;

const QRegularExpression &colorSchemeRule() {
    static const QRegularExpression rule(
        uR"(@media\s*(?:(?:only\s+)?screen\s+and\s+)?\(\s*prefers-color-scheme\s*:\s*(dark|light)\s*\))"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return rule;
}

} // namespace

const QString emailHeightExpression = u"Math.ceil(document.body.getBoundingClientRect().height)"_s;

const QString emailHeightScript = uR"((() => {
    let scheduled = false;
    let lastHeight = 0;
    const measure = () => {
        if (scheduled) return;
        scheduled = true;
        requestAnimationFrame(() => {
            scheduled = false;
            if (!document.body) return;
            const height = Math.ceil(document.body.getBoundingClientRect().height);
            if (Math.abs(height - lastHeight) > 1) {
                lastHeight = height;
                window.webkit.messageHandlers.heightHandler.postMessage(height);
            }
        });
    };
    if (document.body) new ResizeObserver(measure).observe(document.body);
    window.addEventListener('resize', measure);
    window.addEventListener('load', measure);
    document.addEventListener('load', measure, true);
    measure();
})();)"_s;

QString cssColor(const QColor &color) {
    const QRgba64 rgb = color.isValid() ? color.toRgb().rgba64() : QRgba64();
    const auto component = [](quint16 value) { return u"%1"_s.arg(value / 257, 2, 16, QLatin1Char('0')); };
    return u'#' + component(rgb.red()) + component(rgb.green()) + component(rgb.blue());
}

QString rewriteColorSchemeRules(const QString &html, const QString &scheme) {
    QString rewritten;
    qsizetype copied = 0;
    for (auto rules = colorSchemeRule().globalMatch(html); rules.hasNext();) {
        const auto rule = rules.next();
        rewritten += QStringView(html).mid(copied, rule.capturedStart() - copied);
        rewritten += rule.captured(1).toLower() == scheme ? u"@media all"_s : u"@media not all"_s;
        copied = rule.capturedEnd();
    }
    rewritten += QStringView(html).mid(copied);
    return rewritten;
}

QString emailHTMLPage(const QString &html, const ThemeDefinition &theme, bool showImages) {
    const auto scheme = theme.isDark ? u"dark"_s : u"light"_s;
    const auto imageRule = showImages ? QString() : u"img { display: none !important; }"_s;
    const auto head =
        pageTemplate.arg(scheme, cssColor(theme.bgWhite), cssColor(theme.text), cssColor(theme.primary), imageRule);
    return head + rewriteColorSchemeRules(html, scheme) + u"</body></html>"_s;
}
