#include "app/screens/UnsentMessagesView.h"

#include "ui/screens/AccessibleRole.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ErrorBanner.h"
#include "ui/screens/ThemeLabel.h"

#include <QHBoxLayout>
#include <ranges>

namespace {

/// More would leave too little room for the mail.
constexpr std::size_t mostRows = 3;

} // namespace

UnsentMessagesView::UnsentMessagesView(std::shared_ptr<MainScreenState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state)) {
    setAccessibleRole(this, QAccessible::Grouping);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(12, 12, 12, 12);
    rows->setSpacing(8);
    setAccessibleName(tr("Unsent messages"));
    observe(m_state.get(), this, &UnsentMessagesView::render);
}

void UnsentMessagesView::render() {
    auto notices = m_state->unsentNotices();
    setVisible(!notices.empty());
    if (notices == m_shown)
        return;
    m_shown = std::move(notices);
    qDeleteAll(findChildren<QWidget *>(Qt::FindDirectChildrenOnly));
    for (const auto &notice : m_shown | std::views::reverse | std::views::take(mostRows))
        addRow(notice);
    if (m_shown.size() > mostRows)
        layout()->addWidget(
            new ThemeLabel(tr("and %1 more").arg(m_shown.size() - mostRows), TextStyle::body, TextRole::secondary));
}

void UnsentMessagesView::addRow(const UnsentNotice &notice) {
    auto *row = new QWidget;
    auto *columns = new QHBoxLayout(row);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(8);
    auto *words = new ErrorBanner;
    auto *open = new QPushButton(tr("Open Message"));
    auto *dismiss = new IconButton(QStringLiteral("xmark"), tr("Dismiss"));
    words->setError(notice.text);
    pressWithReturn(open);
    columns->addWidget(words, 1);
    columns->addWidget(open);
    columns->addWidget(dismiss);
    layout()->addWidget(row);
    // In the next turn, as the row goes with its message.
    auto *state = m_state.get();
    connect(
        open, &QPushButton::clicked, state, [state, id = notice.id] { state->openUnsent(id); }, Qt::QueuedConnection);
    connect(
        dismiss, &IconButton::clicked, state, [state, id = notice.id] { state->dismissUnsent(id); },
        Qt::QueuedConnection);
}
