#include "ui/screens/FormField.h"

#include "ui/screens/ThemeLabel.h"

#include <QLineEdit>
#include <QVBoxLayout>

ThemeLabel *makeFieldLabel(const QString &label, QWidget *field) {
    auto *title = new ThemeLabel(label, TextStyle::footnote, TextRole::secondary);
    title->setTextStyle(TextStyle::footnote, QFont::Medium);
    title->setBuddy(field);
    field->setAccessibleName(label);
    return title;
}

FormField::FormField(const QString &label, const QString &prompt, Kind kind, QWidget *parent)
    : QWidget(parent)
    , m_lineEdit(new QLineEdit) {
    m_lineEdit->setPlaceholderText(prompt);
    if (kind == Kind::secure)
        m_lineEdit->setEchoMode(QLineEdit::Password);

    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(6);
    column->addWidget(makeFieldLabel(label, m_lineEdit));
    column->addWidget(m_lineEdit);
    setFocusProxy(m_lineEdit);

    connect(m_lineEdit, &QLineEdit::textEdited, this, &FormField::textEdited);
    connect(m_lineEdit, &QLineEdit::returnPressed, this, &FormField::returnPressed);
}

QString FormField::text() const {
    return m_lineEdit->text();
}

void FormField::setText(const QString &text) {
    if (m_lineEdit->text() != text)
        m_lineEdit->setText(text);
}
