#pragma once

#include "mail/EmailDetailState.h"

#include <QPointer>
#include <QWidget>

class EmailHTMLView;
class PlainTextView;

/// The body of the message: its HTML, else its plain text, else nothing.
class EmailBodyView final : public QWidget {
    Q_OBJECT
public:
    EmailBodyView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                  QWidget *parent = nullptr);

    void render();
    /// Lets go of the message when it is no longer on show.
    void clear();

public Q_SLOTS:
    /// What is selected goes to the clipboard.
    void copy();

Q_SIGNALS:
    /// The HTML of the message on show is on the screen.
    void painted();
    void linkHovered(const QUrl &url);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    EmailHTMLView *htmlView();
    void applyTheme();

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<EmailDetailState> m_state;
    PlainTextView *m_textView;
    /// Made when the first HTML message is shown: the web engine is heavy.
    QPointer<EmailHTMLView> m_htmlView;
};
