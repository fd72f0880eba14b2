#pragma once

#include "mail/EmailListState.h"
#include "mail/FocusedActions.h"

#include <QPointer>
#include <QWidget>

class EmailListHeader;
class EmailRowsView;
class EmptyStateView;
class QListView;
class QStackedWidget;

/// The middle column of the main window: one folder's messages, page by page. While it is on show it offers its actions
/// to the menu bar of its window.
class EmailListView final : public QWidget {
    Q_OBJECT
public:
    EmailListView(std::shared_ptr<EmailListState> state, FocusedActions &actions, QWidget *parent = nullptr);

    QListView *list() const;
    void focusSearch();
    /// Gives the rows the keyboard focus, as soon as there are any.
    void focusRows();

Q_SIGNALS:
    /// The opened message is to move on by a page, or back.
    void pageMessageRequested(bool down);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void setUpList();
    void connectList();
    void keepPlace();
    void enterResults();
    void scrollByRows(int rows);
    void render();
    void renderContent();
    void scrollToTopOfNewRows();
    void renderSelection();
    std::set<qint64> highlightedUIDs() const;
    void takeSelection();
    void openCurrent();
    void drag(const QModelIndex &index);
    void publishActions();

    std::shared_ptr<EmailListState> m_state;
    QPointer<FocusedActions> m_actions;
    EmailListHeader *m_header;
    QStackedWidget *m_stack;
    EmailRowsView *m_list;
    EmptyStateView *m_placeholder;
    QWidget *m_skeleton;
    /// The folder, page and search text of the rows on show; others begin at the list's top.
    std::tuple<QString, qint64, QString> m_shownQuery;
    std::optional<qint64> m_publishedCount;
    /// The first rows take the keyboard focus.
    bool m_awaitsFocus = true;
};
