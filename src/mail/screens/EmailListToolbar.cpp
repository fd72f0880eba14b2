#include "mail/screens/EmailListToolbar.h"

#include "mail/EmailListMenus.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/EntryMenu.h"
#include "ui/screens/Spinner.h"

#include <QHBoxLayout>

EmailListToolbar::EmailListToolbar(std::shared_ptr<EmailListState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state)) {
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_archive = add(layout, QStringLiteral("archivebox"), tr("Archive (⌃⌘A)"));
    m_trash = add(layout, QStringLiteral("trash"), tr("Move to Trash (⌘Delete)"));
    m_move = add(layout, QStringLiteral("folder"), tr("Move selected messages"));
    layout->addSpacing(6);
    m_scan = new Spinner(14);
    m_scan->setToolTip(tr("Check for Spam with AI"));
    layout->addWidget(m_scan);
    m_filter = add(layout, QStringLiteral("line.3.horizontal.decrease.circle"), tr("Filter emails"));
    auto *refresh = add(layout, QStringLiteral("arrow.clockwise"), tr("Get New Mail (⇧⌘N)"));
    m_filter->setCheckable(true);

    const auto actions = m_state->actions;
    connect(m_archive, &IconButton::clicked, actions.get(), &EmailListActions::archiveSelected);
    connect(m_trash, &IconButton::clicked, actions.get(), [actions] { actions->showDeleteConfirm = true; });
    connect(m_move, &IconButton::clicked, this, [this] { showEntryMenu(moveMenu(*m_state), m_move); });
    connect(m_filter, &IconButton::clicked, this, &EmailListToolbar::showFilters);
    connect(refresh, &IconButton::clicked, m_state.get(), &EmailListState::reload);
    observe(m_state.get(), this, &EmailListToolbar::render);
    observe(actions.get(), this, &EmailListToolbar::render);
}

IconButton *EmailListToolbar::add(QHBoxLayout *layout, const QString &symbol, const QString &help) {
    auto *button = new IconButton(symbol, help);
    layout->addWidget(button);
    return button;
}

void EmailListToolbar::render() {
    const bool hasSelection = !m_state->viewModel->selectedEmails->empty();
    for (auto *button : {m_archive, m_trash, m_move})
        button->setEnabled(hasSelection);
    m_scan->setVisible(m_state->actions->isCheckingSpam);
    const bool hasFilters = m_state->viewModel->hasActiveFilters();
    m_filter->setChecked(hasFilters);
    m_filter->setSymbol(hasFilters ? QStringLiteral("line.3.horizontal.decrease.circle.fill")
                                   : QStringLiteral("line.3.horizontal.decrease.circle"));
}

void EmailListToolbar::showFilters() {
    // The button shows what is in force; pressing it changes nothing yet.
    render();
    showEntryMenu(filterMenu(*m_state), m_filter);
}
