#pragma once

#include "ui/screens/Sheet.h"

#include <optional>

class PlainTextView;
class QFrame;
class QScrollArea;
class ThemeLabel;
struct EmailSource;

/// The raw text of a message. Show it with `open()`; Escape and the close button close it.
class SourceSheet final : public Sheet {
    Q_OBJECT
public:
    explicit SourceSheet(QWidget *parent);

    /// Shows the text as it is.
    void showPlain(const QString &source);
    /// Shows the text with its headers set apart, or why there is none.
    void showMessage(bool isLoading, const std::optional<QString> &source);

Q_SIGNALS:
    /// The text on show, for the clipboard.
    void copyRequested(const QString &source);

private:
    QWidget *makeText();
    void addButtons();
    void showNote(const QString &words);
    void showText(const QString &source, const EmailSource &parts);
    void copy();

    std::optional<QString> m_source;
    ThemeLabel *m_note;
    QScrollArea *m_scroll;
    PlainTextView *m_headers, *m_body;
    QFrame *m_divider;
};
