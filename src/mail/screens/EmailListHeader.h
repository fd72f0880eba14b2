#pragma once

#include "mail/EmailListState.h"

#include <QWidget>

class SearchBar;
class ThemeLabel;

/// What stands over a message list: the folder, how much is in it, the toolbar, the search box and the filters.
class EmailListHeader final : public QWidget {
    Q_OBJECT
public:
    explicit EmailListHeader(std::shared_ptr<EmailListState> state, QWidget *parent = nullptr);

    void focusSearch();
    /// The search box has the keyboard focus.
    bool isSearching() const;

Q_SIGNALS:
    /// The keyboard is to go on in the rows.
    void resultsRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void render();
    void renderSearch();

    std::shared_ptr<EmailListState> m_state;
    ThemeLabel *m_title, *m_count;
    SearchBar *m_search;
};
