#pragma once

#include "mail/EmailListState.h"

#include <QWidget>

class EmptyStateView;
class IconButton;
class QListView;
class QStackedWidget;
class SearchBar;
class Spinner;
class ThemeLabel;

/// The middle column of the main window: one folder's messages, page by page.
class EmailListView final : public QWidget {
    Q_OBJECT
public:
    explicit EmailListView(std::shared_ptr<EmailListState> state, QWidget *parent = nullptr);

    QListView *list() const { return m_list; }
    void focusSearch();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *makeHeader();
    QWidget *makeStatusBar();
    void setUpList();
    void keepPlace();
    void scrollByRows(int rows);
    void render();
    void renderContent();
    void renderStatus();
    void scrollToTopOfNewRows();
    void renderSelection();
    std::set<qint64> highlightedUIDs() const;
    void takeSelection();
    void openCurrent();

    std::shared_ptr<EmailListState> m_state;
    ThemeLabel *m_title, *m_count;
    SearchBar *m_search;
    QStackedWidget *m_stack;
    QListView *m_list;
    EmptyStateView *m_placeholder;
    QWidget *m_skeleton;
    Spinner *m_jobsSpinner;
    ThemeLabel *m_jobs, *m_selected, *m_page;
    IconButton *m_previous, *m_next;
    /// The folder, page and search text of the rows on show; others begin at the list's top.
    std::tuple<QString, qint64, QString> m_shownQuery;
    /// The first rows take the keyboard focus.
    bool m_awaitsFocus = true;
};
