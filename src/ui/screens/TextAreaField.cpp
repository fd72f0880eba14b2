#include "ui/screens/TextAreaField.h"

#include "ui/screens/FormField.h"
#include "ui/screens/ThemeLabel.h"

#include <QPlainTextEdit>
#include <QVBoxLayout>

TextAreaField::TextAreaField(const QString &label, QWidget *parent)
    : QWidget(parent)
    , m_edit(new QPlainTextEdit) {
    m_edit->setTabChangesFocus(true);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(makeFieldLabel(label, m_edit));
    column->addWidget(m_edit, 1);
    setFocusProxy(m_edit);
    connect(m_edit, &QPlainTextEdit::textChanged, this, [this] { Q_EMIT textEdited(text()); });
}

QString TextAreaField::text() const {
    return m_edit->toPlainText();
}

void TextAreaField::setText(const QString &text) {
    if (m_edit->toPlainText() != text)
        m_edit->setPlainText(text);
}
