#include "compose/screens/TemplateRowDelegate.h"

#include "ui/screens/AppStyle.h"
#include "ui/screens/Fonts.h"
#include "ui/screens/RowDelegate.h"
#include "ui/screens/StyleItems.h"
#include "ui/screens/StyleShapes.h"

#include <QListWidget>
#include <QPainter>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int SubjectRole = Qt::UserRole;
constexpr int PreviewRole = Qt::UserRole + 1;
constexpr int horizontalMargin = 12, verticalMargin = 8, gap = 2;
constexpr int longestPreview = 300;

struct Line {
    QString text;
    QFont font;
    QColor color;
};

/// Those that have something to say.
QList<Line> linesOf(const QModelIndex &index) {
    const auto &theme = AppStyle::theme();
    QList<Line> lines{{index.data().toString(), themeFont(TextStyle::body, QFont::DemiBold), theme.text},
                      {index.data(SubjectRole).toString(), themeFont(TextStyle::subheadline), theme.text},
                      {index.data(PreviewRole).toString(), themeFont(TextStyle::footnote), theme.textSecondary}};
    lines.removeIf([](const Line &line) { return line.text.isEmpty(); });
    return lines;
}

QString previewOf(const QString &body) {
    static const QRegularExpression tags(u"<[^>]+>"_s);
    return QString(body).remove(tags).simplified().left(longestPreview);
}

} // namespace

QListWidgetItem *templateItem(const EmailTemplate &shown) {
    auto *item = new QListWidgetItem(shown.name);
    item->setData(SubjectRole, shown.subject.value_or(QString()));
    item->setData(PreviewRole, previewOf(shown.body.value_or(QString())));
    QStringList words{shown.name, item->data(SubjectRole).toString(), item->data(PreviewRole).toString()};
    words.removeAll(QString());
    item->setData(Qt::AccessibleTextRole, words.join(u", "_s));
    return item;
}

void TemplateRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
    painter->save();
    paintItemBackground(painter, option, AppStyle::theme());
    if (option.state & QStyle::State_HasFocus && option.state & QStyle::State_KeyboardFocusChange)
        paintFocusRing(painter, option.rect, StyleMetrics::rowRadius, AppStyle::theme());
    QRect place = option.rect.adjusted(horizontalMargin, verticalMargin, -horizontalMargin, 0);
    for (const auto &line : linesOf(index)) {
        place.setHeight(QFontMetrics(line.font).lineSpacing());
        drawLine(painter, place, line.font, line.color, line.text);
        place.translate(0, place.height() + gap);
    }
    painter->restore();
}

QSize TemplateRowDelegate::sizeHint(const QStyleOptionViewItem &, const QModelIndex &index) const {
    int height = 2 * verticalMargin - gap;
    for (const auto &line : linesOf(index))
        height += QFontMetrics(line.font).lineSpacing() + gap;
    return {0, height};
}
