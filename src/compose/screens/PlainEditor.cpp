#include "compose/screens/PlainEditor.h"

#include "compose/screens/FileDrag.h"
#include "mail/HTMLPlainText.h"
#include "ui/screens/ThemeLabel.h"

#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// HTML drops blanks at the start of a line and all but one of those in a row; lines can still break at the last.
QString withKeptBlanks(QString lines) {
    static const QRegularExpression dropped(u"^ | (?= )"_s, QRegularExpression::MultilineOption);
    return lines.replace(dropped, u"&nbsp;"_s);
}

} // namespace

PlainEditor::PlainEditor(const QString &reason, QWidget *parent)
    : QWidget(parent)
    , m_text(new QPlainTextEdit) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *line = new ThemeLabel(reason, TextStyle::caption, TextRole::secondary);
    line->setWordWrap(true);
    layout->addWidget(line);
    layout->addWidget(m_text, 1);
    m_text->setPlaceholderText(tr("Write your message..."));
    m_text->setAccessibleName(tr("Message"));
    m_text->setTabChangesFocus(true);
    leaveFilesToScreen(m_text->viewport());
    setFocusProxy(m_text);
    connect(m_text, &QPlainTextEdit::textChanged, this, [this] { Q_EMIT htmlContentChanged(html()); });
}

void PlainEditor::setContent(const QString &html) {
    m_text->setPlainText(plainTextFromHTML(html));
}

QString PlainEditor::html() const {
    const auto text = m_text->toPlainText().replace(u'\t', u"    "_s);
    return withKeptBlanks(text.toHtmlEscaped()).replace(u'\n', u"<br>"_s);
}
