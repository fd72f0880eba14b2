#pragma once

#include <QWidget>
#include <optional>

class SymbolView;
class ThemeLabel;

/// What went wrong, in red, where it went wrong. Takes no room while there is nothing to say.
class ErrorBanner : public QWidget {
    Q_OBJECT
public:
    explicit ErrorBanner(QWidget *parent = nullptr);

    /// A new text is announced to screen readers.
    void setError(const std::optional<QString> &text);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    SymbolView *m_symbol;
    ThemeLabel *m_text;
};
