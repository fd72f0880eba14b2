#pragma once

#include <QWidget>

class QPlainTextEdit;

/// A label with a box for several lines of plain text below it.
class TextAreaField final : public QWidget {
    Q_OBJECT
public:
    explicit TextAreaField(const QString &label, QWidget *parent = nullptr);

    QString text() const;
    void setText(const QString &text);

Q_SIGNALS:
    void textEdited(const QString &text);

private:
    QPlainTextEdit *m_edit;
};
