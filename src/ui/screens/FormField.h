#pragma once

#include <QWidget>

class QLineEdit;
class ThemeLabel;

/// The label over a field, which also names it to screen readers.
ThemeLabel *makeFieldLabel(const QString &label, QWidget *field);

/// A label with a box for one line of text below it.
class FormField : public QWidget {
    Q_OBJECT
public:
    enum class Kind { plain, secure };

    explicit FormField(const QString &label, const QString &prompt = {}, Kind kind = Kind::plain,
                       QWidget *parent = nullptr);

    QLineEdit *lineEdit() const { return m_lineEdit; }
    QString text() const;
    /// A text that is there already moves neither cursor nor selection.
    void setText(const QString &text);

Q_SIGNALS:
    void textEdited(const QString &text);
    void returnPressed();

private:
    QLineEdit *m_lineEdit;
};
