#include "mail/screens/EmailListStatusBar.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/Spinner.h"
#include "ui/screens/ThemeLabel.h"

#include <QHBoxLayout>

EmailListStatusBar::EmailListStatusBar(std::shared_ptr<EmailListState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_jobsSpinner(new Spinner(14))
    , m_jobs(new ThemeLabel(tr("Processing in background…"), TextStyle::caption, TextRole::secondary))
    , m_failure(new ThemeLabel(tr("Could not refresh"), TextStyle::caption, TextRole::error))
    , m_selected(new ThemeLabel({}, TextStyle::caption, TextRole::secondary))
    , m_page(new ThemeLabel({}, TextStyle::caption, TextRole::secondary))
    , m_previous(new IconButton(QStringLiteral("chevron.left"), tr("Previous page")))
    , m_next(new IconButton(QStringLiteral("chevron.right"), tr("Next page"))) {
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(16, 4, 8, 4);
    layout->setSpacing(6);
    layout->addWidget(m_jobsSpinner);
    layout->addWidget(m_jobs);
    layout->addWidget(m_failure);
    layout->addWidget(m_selected);
    layout->addStretch();
    layout->addWidget(m_page);
    layout->addWidget(m_previous);
    layout->addWidget(m_next);
    connect(m_previous, &IconButton::clicked, m_state.get(), &EmailListState::previousPage);
    connect(m_next, &IconButton::clicked, m_state.get(), &EmailListState::nextPage);
    observe(m_state.get(), this, &EmailListStatusBar::render);
}

void EmailListStatusBar::render() {
    const auto &model = *m_state->viewModel;
    const bool hasJobs = model.backgroundJobsActive > 0;
    m_jobsSpinner->setVisible(hasJobs);
    m_jobs->setVisible(hasJobs);
    const auto failure = m_state->refreshFailure();
    m_failure->setVisible(failure.has_value());
    m_failure->setToolTip(literalToolTip(failure.value_or(QString())));
    const auto selected = model.selectedEmails->size();
    m_selected->setVisible(selected > 0);
    m_selected->setText(tr("%1 selected").arg(selected));
    m_page->setText(m_state->pageText());
    m_previous->setEnabled(model.currentPage >= 2);
    m_next->setEnabled(model.currentPage < model.totalPages);
}
