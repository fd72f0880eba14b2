#pragma once

#include "app/MainScreenState.h"
#include "mail/EmailDetailState.h"
#include "mail/EmailListState.h"
#include "mail/FocusedActions.h"
#include "ui/screens/MailThemeBackground.h"

class DestinationView;
class EmailDetailView;
class EmailListView;
class EmptyStateView;
class QStackedWidget;
class SidebarView;
class ToastPresenter;

/// What a signed-in person sees: sidebar, message list and opened message.
class MainScreen final : public MailThemeBackground {
    Q_OBJECT
public:
    /// `actions` outlives it.
    MainScreen(std::shared_ptr<AppState> appState, FocusedActions &actions, QWidget *parent = nullptr);
    ~MainScreen() override;

    EmailListState &listState() { return *m_listState; }
    EmailDetailState &detailState() { return *m_detailState; }
    EmailDetailView *detailView() const { return m_detail; }
    EmailListView *listView() const { return m_list; }

Q_SIGNALS:
    void emailWindowRequested(const EmailWindowRef &reference);

private:
    QWidget *makeMailView();
    void render();
    void renderMail();
    void connectKeyboard();
    /// From left to right; only what can be seen, and can do something with the keyboard.
    std::vector<QWidget *> panes() const;
    void focusPane(QWidget *pane);
    void walkPanes(int step);
    void warmUpWhenListIsShown();

    std::shared_ptr<AppState> m_appState;
    FocusedActions &m_actions;
    std::shared_ptr<MainScreenState> m_state;
    std::shared_ptr<EmailListState> m_listState;
    std::shared_ptr<EmailDetailState> m_detailState;
    SidebarView *m_sidebar;
    QStackedWidget *m_content, *m_listColumn;
    DestinationView *m_destination;
    QWidget *m_mailView;
    EmptyStateView *m_noFolder;
    EmailListView *m_list;
    EmailDetailView *m_detail;
    ToastPresenter *m_toasts;
    ScheduledWorkPtr m_warmUp;
    bool m_hasWarmedUp = false;
};
