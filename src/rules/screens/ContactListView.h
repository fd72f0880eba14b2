#pragma once

#include "rules/ContactListState.h"
#include "rules/screens/ContactSheet.h"
#include "ui/screens/SectionPage.h"

#include <QPointer>

class EmptyStateView;
class QStackedWidget;
class RowsView;
class SearchBar;

/// The address book: a search over the contacts, and what can be done to each.
class ContactListView final : public SectionPage {
    Q_OBJECT
public:
    explicit ContactListView(std::shared_ptr<ContactListState> state, QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void setUpRows();
    void setUpSearch();
    void setUpPlaceholder();
    void startAdding();
    void edit(const QModelIndex &index);
    void render();
    void renderContent();
    void renderSheet();
    void openSheet(ContactSheet::Purpose purpose);
    QString idAt(const QModelIndex &index) const { return m_state->rows.row(index.row()).id; }

    std::shared_ptr<ContactListState> m_state;
    SearchBar *m_search;
    QStackedWidget *m_stack;
    RowsView *m_rows;
    EmptyStateView *m_placeholder;
    QPointer<ContactSheet> m_sheet;
};
