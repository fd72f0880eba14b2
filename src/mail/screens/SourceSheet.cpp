#include "mail/screens/SourceSheet.h"

#include "mail/EmailSource.h"
#include "mail/screens/ColumnScrollArea.h"
#include "mail/screens/PlainTextView.h"
#include "ui/screens/AppStyle.h"
#include "ui/screens/StyleShapes.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeLabel.h"

#include <QFrame>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize preferredSize(760, 620);

/// The names of header lines stand out.
QList<QTextLayout::FormatRange> headerName(const QString &line) {
    QTextLayout::FormatRange name{};
    name.length = int(headerNameLength(line));
    name.format.setForeground(accentTextColor(AppStyle::theme()));
    return {name};
}

} // namespace

SourceSheet::SourceSheet(QWidget *parent)
    : Sheet(tr("Email Source"), {}, parent)
    , m_note(new ThemeLabel({}, TextStyle::body, TextRole::secondary))
    , m_scroll(new ColumnScrollArea)
    , m_headers(new PlainTextView)
    , m_body(new PlainTextView)
    , m_divider(new QFrame) {
    setAttribute(Qt::WA_DeleteOnClose);
    resize(preferredSize);
    setSizeGripEnabled(true);
    m_note->setAlignment(Qt::AlignCenter);
    m_scroll->setWidget(makeText());
    column()->addWidget(m_note, 1);
    column()->addWidget(m_scroll, 1);
    addButtons();
    showNote({});
}

QWidget *SourceSheet::makeText() {
    auto *text = new QWidget;
    text->setBackgroundRole(QPalette::Base);
    text->setAutoFillBackground(true);
    m_headers->setAccessibleName(tr("Headers"));
    m_body->setAccessibleName(tr("Body"));
    m_divider->setFrameShape(QFrame::HLine);
    auto *layout = new QVBoxLayout(text);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_headers);
    layout->addWidget(m_divider);
    layout->addWidget(m_body);
    layout->addStretch(1);
    for (auto *view : {m_headers, m_body}) {
        view->setFixedPitch(true);
        view->setTheme(AppStyle::theme());
    }
    return text;
}

void SourceSheet::addButtons() {
    auto *copyButton = addButton(tr("Copy"));
    copyButton->setIcon(symbolIcon(u"doc.on.doc"_s));
    connect(copyButton, &QPushButton::clicked, this, &SourceSheet::copy);
    auto *close = addButton(tr("Close"), ButtonRole::primary);
    close->setToolTip(tr("Close (Esc)"));
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

void SourceSheet::showPlain(const QString &source) {
    m_headers->setHighlighter({});
    m_headers->setAccessibleName(tr("Email Source"));
    showText(source, {source, {}});
}

void SourceSheet::showMessage(bool isLoading, const std::optional<QString> &source) {
    if (isLoading)
        return showNote(tr("Loading source..."));
    if (!source)
        return showNote(tr("No source available"));
    m_headers->setHighlighter(headerName);
    showText(*source, splitSource(*source));
}

void SourceSheet::showNote(const QString &words) {
    m_source = std::nullopt;
    m_note->setText(words);
    m_note->show();
    m_scroll->hide();
}

void SourceSheet::showText(const QString &source, const EmailSource &parts) {
    if (m_source == source)
        return;
    m_source = source;
    m_headers->setText(parts.headers);
    m_body->setText(parts.body.value_or(QString()));
    m_divider->setVisible(parts.body.has_value());
    m_body->setVisible(parts.body.has_value());
    m_scroll->verticalScrollBar()->setValue(0);
    m_note->hide();
    m_scroll->show();
    m_headers->setFocus();
}

void SourceSheet::copy() {
    if (m_source)
        Q_EMIT copyRequested(*m_source);
}
