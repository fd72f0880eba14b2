#pragma once

#include "ui/ThemeDefinition.h"

#include <QWidget>

class QLabel;
class QPlainTextEdit;

/// What stands in for the web view where there is none: the words of a message under a line that says why.
class PlainMailView final : public QWidget {
    Q_OBJECT

public:
    explicit PlainMailView(QWidget *parent);
    void setReason(const QString &reason);
    void setTheme(const ThemeDefinition &theme);
    void setHtml(const QString &html);

Q_SIGNALS:
    /// The height that shows all of the text, up to a bound beyond which the text scrolls by itself.
    void heightWanted(int height);

private:
    void showText(const QString &text);

    QLabel *m_reason;
    QPlainTextEdit *m_text;
    quint64 m_conversion = 0;
};
