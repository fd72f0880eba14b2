#include "mail/screens/EmailListView.h"

#include "mail/Folders.h"
#include "mail/screens/EmailRowDelegate.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/SearchBar.h"
#include "ui/screens/SkeletonView.h"
#include "ui/screens/Spinner.h"
#include "ui/screens/ThemeLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListView>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

EmailListView::EmailListView(std::shared_ptr<EmailListState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_stack(new QStackedWidget)
    , m_list(new QListView)
    , m_placeholder(new EmptyStateView)
    , m_skeleton(new SkeletonView) {
    setUpList();
    m_stack->addWidget(m_list);
    m_stack->addWidget(m_placeholder);
    m_stack->addWidget(m_skeleton);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addWidget(m_stack, 1);
    layout->addWidget(makeStatusBar());

    observe(m_state.get(), this, &EmailListView::render);
}

QWidget *EmailListView::makeHeader() {
    auto *header = new QWidget;
    m_title = new ThemeLabel({}, TextStyle::title3);
    m_count = new ThemeLabel({}, TextStyle::caption, TextRole::secondary);
    m_search = new SearchBar(tr("Search emails…"));
    auto *refresh = new IconButton(QStringLiteral("arrow.clockwise"), tr("Get New Mail (⇧⌘N)"));

    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(m_title);
    texts->addWidget(m_count);
    auto *top = new QHBoxLayout;
    top->addLayout(texts, 1);
    top->addWidget(refresh);
    auto *layout = new QVBoxLayout(header);
    layout->setContentsMargins(16, 14, 12, 10);
    layout->setSpacing(10);
    layout->addLayout(top);
    layout->addWidget(m_search);

    connect(refresh, &IconButton::clicked, m_state.get(), &EmailListState::reload);
    connect(m_search, &SearchBar::textChanged, m_state.get(), &EmailListState::setSearchQuery);
    connect(m_search, &SearchBar::returnPressed, m_state.get(), &EmailListState::submitSearch);
    return header;
}

QWidget *EmailListView::makeStatusBar() {
    auto *bar = new QWidget;
    m_jobsSpinner = new Spinner(14);
    m_jobs = new ThemeLabel(tr("Processing in background…"), TextStyle::caption, TextRole::secondary);
    m_selected = new ThemeLabel({}, TextStyle::caption, TextRole::secondary);
    m_page = new ThemeLabel({}, TextStyle::caption, TextRole::secondary);
    m_previous = new IconButton(QStringLiteral("chevron.left"), tr("Previous page"));
    m_next = new IconButton(QStringLiteral("chevron.right"), tr("Next page"));
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(16, 4, 8, 4);
    layout->setSpacing(4);
    layout->addWidget(m_jobsSpinner);
    layout->addWidget(m_jobs);
    layout->addWidget(m_selected);
    layout->addStretch();
    layout->addWidget(m_page);
    layout->addSpacing(4);
    layout->addWidget(m_previous);
    layout->addWidget(m_next);
    connect(m_previous, &IconButton::clicked, m_state.get(), &EmailListState::previousPage);
    connect(m_next, &IconButton::clicked, m_state.get(), &EmailListState::nextPage);
    return bar;
}

void EmailListView::setUpList() {
    m_list->setModel(&m_state->rows);
    m_list->setItemDelegate(new EmailRowDelegate(m_list));
    m_list->setUniformItemSizes(true);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setMouseTracking(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setAccessibleName(tr("Messages"));
    m_list->viewport()->setAutoFillBackground(false);
    m_list->installEventFilter(this);
    connect(m_list->selectionModel(), &QItemSelectionModel::selectionChanged, this, &EmailListView::takeSelection);
    connect(m_list, &QListView::doubleClicked, this, &EmailListView::openCurrent);
    keepPlace();
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

bool EmailListView::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QWidget::eventFilter(watched, event);
    openCurrent();
    return true;
}

void EmailListView::openCurrent() {
    const auto &selected = m_state->viewModel->selectedEmails.get();
    if (selected.size() == 1)
        m_state->openInWindow(*selected.begin());
}

void EmailListView::focusSearch() {
    m_search->requestFocus();
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
    m_title->setText(displayName(m_state->folder));
    m_count->setText(m_state->countText());
    if (m_search->text() != m_state->viewModel->searchQuery.get())
        m_search->setText(m_state->viewModel->searchQuery);
    static_cast<EmailRowDelegate *>(m_list->itemDelegate())->showsStars = m_state->showsStars();
    renderContent();
    renderSelection();
    renderStatus();
    scrollToTopOfNewRows();
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
        if (std::exchange(m_awaitsFocus, false) && !m_search->hasFocus())
            m_list->setFocus();
        return;
    case EmailListState::Content::skeleton:
        m_stack->setCurrentWidget(m_skeleton);
        return;
    case EmailListState::Content::empty:
    case EmailListState::Content::failure:
        m_placeholder->setTexts(m_state->placeholder());
        m_stack->setCurrentWidget(m_placeholder);
        return;
    }
}

void EmailListView::renderStatus() {
    const auto &model = *m_state->viewModel;
    const bool hasJobs = model.backgroundJobsActive > 0;
    m_jobsSpinner->setVisible(hasJobs);
    m_jobs->setVisible(hasJobs);
    const auto selected = model.selectedEmails->size();
    m_selected->setText(selected == 0 ? QString() : tr("%1 selected").arg(selected));
    m_page->setText(model.pageInfoText());
    m_previous->setEnabled(model.currentPage >= 2);
    m_next->setEnabled(model.currentPage < model.totalPages);
}
