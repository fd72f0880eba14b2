#pragma once

#include "mail/EmailDetailState.h"
#include "mail/FocusedActions.h"

#include <QPointer>
#include <QWidget>

class ConfirmationSheet;
class EmailMessageView;
class EmailToolbar;
class EmptyStateView;
class QStackedLayout;
class QStackedWidget;
class SourceSheet;
class ToastPresenter;

/// One opened message with the actions on it, or what stands in its place; and over it the related messages that were
/// opened from it.
class EmailDetailView final : public QWidget {
    Q_OBJECT
public:
    explicit EmailDetailView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                             FocusedActions &actions, QWidget *parent = nullptr);
    ~EmailDetailView() override;

    /// Gives the body the focus, as soon as there is one.
    void focusBody();
    /// Scrolls the message by as much of it as can be seen.
    void pageBody(bool down);

Q_SIGNALS:
    /// The body of the message on show is on the screen.
    void bodyPainted();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QWidget *makeScreen();
    void connectState();
    void addBackShortcuts();
    void render();
    void renderContent();
    void renderPushed();
    void renderSheets();
    void showMessage();
    void showProgressSoon();
    void showPlaceholder();
    void publish();
    void confirmBlock();
    void showSource();

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<EmailDetailState> m_state;
    QPointer<FocusedActions> m_actions;
    QStackedLayout *m_layers;
    EmailToolbar *m_toolbar;
    QStackedWidget *m_stack;
    QWidget *m_loading;
    EmptyStateView *m_placeholder;
    EmailMessageView *m_message;
    QPointer<EmailDetailView> m_pushed;
    QPointer<ConfirmationSheet> m_confirmation;
    QPointer<SourceSheet> m_source;
    ToastPresenter *m_actionToasts, *m_copyToasts;
    ScheduledWorkPtr m_progress;
    bool m_awaitsFocus = false;
    /// What the menu bar was told last; absent for nothing.
    std::optional<bool> m_publishedAttachments;
};
