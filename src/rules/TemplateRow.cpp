#include "rules/TemplateRow.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype longestPreview = 300;

QString previewOf(const QString &body) {
    static const QRegularExpression tags(u"<[^>]+>"_s);
    return QString(body).remove(tags).simplified().left(longestPreview);
}

QString inWords(const ListRow &row) {
    QStringList words{row.title, row.detail, row.preview};
    words.removeAll(QString());
    return words.join(u", "_s);
}

} // namespace

ListRow templateRow(const EmailTemplate &shown) {
    ListRow row{.id = shown._id, .title = shown.name, .detail = shown.subject.value_or(QString())};
    row.accessibleText = inWords(row);
    return row;
}

ListRow templateRowWithPreview(const EmailTemplate &shown) {
    auto row = templateRow(shown);
    row.preview = previewOf(shown.body.value_or(QString()));
    row.accessibleText = inWords(row);
    return row;
}
