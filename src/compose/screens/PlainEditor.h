#pragma once

#include <QWidget>

class QPlainTextEdit;

/// What a message is written in where there is no web engine: plain text, under a line that says why.
class PlainEditor final : public QWidget {
    Q_OBJECT

public:
    explicit PlainEditor(const QString &reason, QWidget *parent = nullptr);

    /// Only the words of `html` are kept.
    void setContent(const QString &html);
    QString html() const;

Q_SIGNALS:
    void htmlContentChanged(const QString &html);

private:
    QPlainTextEdit *m_text;
};
