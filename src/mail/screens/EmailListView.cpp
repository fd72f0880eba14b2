#include "mail/screens/EmailListView.h"

#include "mail/EmailListMenus.h"
#include "mail/FaviconStore.h"
#include "mail/screens/EmailDrag.h"
#include "mail/screens/EmailListHeader.h"
#include "mail/screens/EmailListSheets.h"
#include "mail/screens/EmailListStatusBar.h"
#include "mail/screens/EmailRowDelegate.h"
#include "mail/screens/EmailRowsView.h"
#include "mail/screens/PullToRefresh.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/SkeletonView.h"

#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

EmailListView::EmailListView(std::shared_ptr<EmailListState> state, FocusedActions &actions, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_actions(&actions)
    , m_header(new EmailListHeader(m_state))
    , m_stack(new QStackedWidget)
    , m_list(new EmailRowsView)
    , m_placeholder(new EmptyStateView)
    , m_skeleton(new SkeletonView) {
    setUpList();
    connect(m_placeholder, &EmptyStateView::buttonPressed, m_state.get(), &EmailListState::reload);
    m_stack->addWidget(m_list);
    m_stack->addWidget(m_placeholder);
    m_stack->addWidget(m_skeleton);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_header);
    layout->addWidget(m_stack, 1);
    layout->addWidget(new EmailListStatusBar(m_state));

    connect(m_header, &EmailListHeader::resultsRequested, this, &EmailListView::enterResults);
    new EmailListSheets(m_state, this);
    observe(m_state.get(), this, &EmailListView::render);
}

QListView *EmailListView::list() const {
    return m_list;
}

void EmailListView::setUpList() {
    m_list->setModel(&m_state->rows);
    connectList();
    m_list->offerActions([state = m_state](const QModelIndex &index) {
        const auto email = state->email(state->rows.row(index.row()).uid);
        return email ? emailRowActions(*state, *email) : RowActions();
    });
    for (const auto *pull : {new PullToRefresh(m_list->viewport(), m_list->verticalScrollBar()),
                             new PullToRefresh(m_placeholder, nullptr)})
        connect(pull, &PullToRefresh::pulled, m_state.get(), &EmailListState::reload);
    keepPlace();
}

void EmailListView::connectList() {
    const auto actions = m_state->actions;
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &EmailListView::takeSelection);
    connect(m_list, &QListView::doubleClicked, this, &EmailListView::openCurrent);
    connect(m_list, &EmailRowsView::openRequested, this, &EmailListView::openCurrent);
    connect(m_list, &EmailRowsView::pageMessageRequested, this, &EmailListView::pageMessageRequested);
    connect(m_list, &EmailRowsView::deleteRequested, actions.get(), &EmailListActions::deleteSelected);
    connect(m_list, &EmailRowsView::dragRequested, this, &EmailListView::drag);
    connect(m_list, &EmailRowsView::starPressed, this, [this, actions](const QModelIndex &index) {
        if (const auto email = m_state->email(m_state->rows.row(index.row()).uid))
            actions->toggleStar(*email);
    });
    connect(&FaviconStore::shared(), &FaviconStore::iconLoaded, m_list->viewport(), qOverload<>(&QWidget::update));
}

/// Rows that come or go above what the person looks at do not move it, unless the list stands at its top.
void EmailListView::keepPlace() {
    const auto isAbove = [this](int row) {
        const auto place = m_list->verticalScrollBar()->value();
        return place > 0 && row <= place / m_list->sizeHintForRow(0);
    };
    connect(&m_state->rows, &QAbstractItemModel::rowsInserted, this,
            [=, this](const QModelIndex &, int first, int last) {
                if (isAbove(first))
                    scrollByRows(last - first + 1);
            });
    connect(&m_state->rows, &QAbstractItemModel::rowsRemoved, this,
            [=, this](const QModelIndex &, int first, int last) {
                if (m_state->rows.rowCount() > 0 && isAbove(last))
                    scrollByRows(first - last - 1);
            });
}

void EmailListView::scrollByRows(int rows) {
    m_list->doItemsLayout();
    auto *bar = m_list->verticalScrollBar();
    bar->setValue(bar->value() + rows * m_list->sizeHintForRow(0));
}

void EmailListView::openCurrent() {
    const auto &selected = m_state->viewModel->selectedEmails.get();
    if (selected.size() == 1)
        m_state->openInWindow(*selected.begin());
}

void EmailListView::drag(const QModelIndex &index) {
    const auto &row = m_state->rows.row(index.row());
    const auto items = m_state->dragData(row.uid);
    // The list may be gone by the time of the drop.
    const auto state = m_state;
    if (dragEmails(m_list, items, row.subject))
        state->noteDropped(items);
}

void EmailListView::showEvent(QShowEvent *event) {
    QWidget::showEvent(event);
    m_publishedCount = std::nullopt;
    publishActions();
}

void EmailListView::hideEvent(QHideEvent *event) {
    QWidget::hideEvent(event);
    m_publishedCount = std::nullopt;
    if (m_actions)
        m_actions->publishMailbox(std::nullopt);
}

void EmailListView::publishActions() {
    const auto count = qint64(m_state->viewModel->selectedEmails->size());
    if (!m_actions || !isVisible() || m_publishedCount == count)
        return;
    m_publishedCount = count;
    m_actions->publishMailbox(
        MacMailboxActions{.selectedCount = count, .perform = [weak = std::weak_ptr(m_state)](MacMailAction action) {
                              if (const auto state = weak.lock())
                                  state->perform(action);
                          }});
}

void EmailListView::focusSearch() {
    m_header->focusSearch();
}

void EmailListView::focusRows() {
    m_awaitsFocus = m_state->content() != EmailListState::Content::rows;
    // Whoever has the focus now loses it, or would be taken for somebody who is typing when the rows come.
    (m_awaitsFocus ? static_cast<QWidget *>(m_stack) : m_list)->setFocus(Qt::ShortcutFocusReason);
}

void EmailListView::enterResults() {
    if (m_state->content() == EmailListState::Content::rows)
        focusRows();
}

std::set<qint64> EmailListView::highlightedUIDs() const {
    std::set<qint64> uids;
    for (const auto &index : m_list->selectionModel()->selectedIndexes())
        uids.insert(m_state->rows.row(index.row()).uid);
    return uids;
}

void EmailListView::takeSelection() {
    m_state->setSelection(highlightedUIDs());
}

/// Highlights what the model has selected, where the two differ: a change of folder empties the selection although
/// the favourites and the inbox share rows.
void EmailListView::renderSelection() {
    const auto &selected = m_state->viewModel->selectedEmails.get();
    if (highlightedUIDs() == selected)
        return;
    QItemSelection selection;
    for (const auto uid : selected)
        if (const auto row = m_state->rows.indexOf(uid); row >= 0)
            selection.select(m_state->rows.index(row), m_state->rows.index(row));
    const QSignalBlocker quiet(m_list->selectionModel());
    m_list->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    m_list->viewport()->update();
}

void EmailListView::render() {
    m_list->rowDelegate()->showsStars = m_state->showsStars();
    renderContent();
    renderSelection();
    scrollToTopOfNewRows();
    publishActions();
}

void EmailListView::scrollToTopOfNewRows() {
    const auto &model = *m_state->viewModel;
    if (model.isLoading || model.isRefreshing)
        return;
    auto query = std::tuple(m_state->folder->path, model.currentPage.get(), model.searchQuery.get());
    if (std::exchange(m_shownQuery, query) != query)
        m_list->scrollToTop();
}

void EmailListView::renderContent() {
    switch (m_state->content()) {
    case EmailListState::Content::rows:
        m_stack->setCurrentWidget(m_list);
        if (std::exchange(m_awaitsFocus, false) && !m_header->isSearching())
            m_list->setFocus();
        return;
    case EmailListState::Content::skeleton:
        m_stack->setCurrentWidget(m_skeleton);
        return;
    case EmailListState::Content::empty:
    case EmailListState::Content::failure:
        m_placeholder->setButton(m_state->content() == EmailListState::Content::failure ? tr("Try Again") : QString());
        m_placeholder->setTexts(m_state->placeholder());
        m_stack->setCurrentWidget(m_placeholder);
        return;
    }
}
