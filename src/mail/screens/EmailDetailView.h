#pragma once

#include "mail/EmailDetailState.h"

#include <QPointer>
#include <QWidget>

class EmailHTMLView;
class EmptyStateView;
class PlainTextView;
class QScrollArea;
class QStackedWidget;
class ToastPresenter;

/// One opened message: header, image bar and body in one scrolling column; or what stands in its place.
class EmailDetailView final : public QWidget {
    Q_OBJECT
public:
    explicit EmailDetailView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                             QWidget *parent = nullptr);

Q_SIGNALS:
    /// The body of the message on show is on the screen.
    void bodyPainted();

private:
    QWidget *makeColumn();
    QWidget *makeImageBar();
    void render();
    void renderMessage();
    void renderBody();
    void showProgressSoon();
    void showPlaceholder();
    void applyTheme();
    EmailHTMLView *htmlView();

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<EmailDetailState> m_state;
    QStackedWidget *m_stack;
    QWidget *m_loading;
    EmptyStateView *m_placeholder;
    QScrollArea *m_scroll;
    QWidget *m_imageBar;
    QWidget *m_bodyPlace;
    PlainTextView *m_textView;
    /// Made when the first HTML message is shown: the web engine is heavy.
    QPointer<EmailHTMLView> m_htmlView;
    ToastPresenter *m_toasts;
    ScheduledWorkPtr m_progress;
    std::optional<EmailWindowRef> m_shown;
};
