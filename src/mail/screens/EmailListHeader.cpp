#include "mail/screens/EmailListHeader.h"

#include "mail/Folders.h"
#include "mail/screens/EmailListToolbar.h"
#include "mail/screens/FilterChips.h"
#include "ui/screens/SearchBar.h"
#include "ui/screens/ThemeLabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>

EmailListHeader::EmailListHeader(std::shared_ptr<EmailListState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_title(new ThemeLabel({}, TextStyle::title3))
    , m_count(new ThemeLabel({}, TextStyle::caption, TextRole::secondary))
    , m_search(new SearchBar(tr("Search emails…"))) {
    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(m_title);
    texts->addWidget(m_count);
    auto *top = new QHBoxLayout;
    top->addLayout(texts, 1);
    top->addWidget(new EmailListToolbar(m_state));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 14, 12, 10);
    layout->setSpacing(10);
    layout->addLayout(top);
    layout->addWidget(m_search);
    layout->addWidget(new FilterChips(m_state));

    connect(m_search, &SearchBar::textChanged, m_state.get(), &EmailListState::setSearchQuery);
    connect(m_search, &SearchBar::returnPressed, m_state.get(), &EmailListState::submitSearch);
    connect(m_search, &SearchBar::returnPressed, this, &EmailListHeader::resultsRequested);
    observe(m_state.get(), this, &EmailListHeader::render);
}

void EmailListHeader::focusSearch() {
    m_search->requestFocus();
}

bool EmailListHeader::isSearching() const {
    return m_search->hasFocus();
}

// The search box has no use for the key.
void EmailListHeader::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Down && isSearching())
        Q_EMIT resultsRequested();
    else
        QWidget::keyPressEvent(event);
}

void EmailListHeader::render() {
    m_title->setText(displayName(m_state->folder));
    m_count->setText(m_state->countText());
    renderSearch();
}

void EmailListHeader::renderSearch() {
    if (m_search->text() != m_state->viewModel->searchQuery.get())
        m_search->setText(m_state->viewModel->searchQuery);
    if (!m_state->searchFocused)
        return;
    m_state->searchFocused = false;
    focusSearch();
}
