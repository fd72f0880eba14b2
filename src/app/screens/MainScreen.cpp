#include "app/screens/MainScreen.h"

#include "app/screens/DestinationView.h"
#include "app/screens/UnsentMessagesView.h"
#include "mail/Folders.h"
#include "mail/screens/EmailDetailView.h"
#include "mail/screens/EmailHTMLView.h"
#include "mail/screens/EmailListView.h"
#include "mail/screens/SidebarView.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/MailColumns.h"
#include "ui/screens/SidebarSplitView.h"
#include "ui/screens/ToastPresenter.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

/// How long the list must have been on screen before the web engine is started.
constexpr auto warmUpDelay = std::chrono::milliseconds(600);

} // namespace

MainScreen::MainScreen(std::shared_ptr<AppState> appState, FocusedActions &actions, QWidget *parent)
    : MailThemeBackground(false, parent)
    , m_appState(std::move(appState))
    , m_actions(actions)
    , m_state(MainScreenState::make(m_appState))
    , m_listState(EmailListState::make(m_appState))
    , m_detailState(EmailDetailState::make(m_appState))
    , m_sidebar(new SidebarView(m_appState, m_state))
    , m_content(new QStackedWidget)
    , m_destination(new DestinationView(m_appState))
    , m_toasts(new ToastPresenter(this)) {
    m_mailView = makeMailView();
    m_content->addWidget(m_mailView);
    m_content->addWidget(m_destination);
    auto *split = new SidebarSplitView(m_sidebar, m_content);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new UnsentMessagesView(m_state));
    layout->addWidget(split, 1);

    connect(m_listState.get(), &EmailListState::emailWindowRequested, this, &MainScreen::emailWindowRequested);
    observe(m_appState.get(), this, &MainScreen::render);
    observe(m_state.get(), this, &MainScreen::render);
    connect(m_listState.get(), &ObservableObject::changed, this, &MainScreen::warmUpWhenListIsShown);
    connect(m_toasts, &ToastPresenter::expired, m_state.get(), [this] { m_state->toast = std::nullopt; });
    connectKeyboard();
}

MainScreen::~MainScreen() {
    m_state->close();
    m_listState->close();
}

QWidget *MainScreen::makeMailView() {
    m_listColumn = new QStackedWidget;
    m_noFolder =
        new EmptyStateView({QStringLiteral("folder"), tr("Select a folder"), tr("Choose a folder from the sidebar")});
    m_list = new EmailListView(m_listState, m_actions);
    m_listColumn->addWidget(m_noFolder);
    m_listColumn->addWidget(m_list);
    auto *message = new MailThemeBackground(true);
    auto *messageLayout = new QVBoxLayout(message);
    messageLayout->setContentsMargins(0, 0, 0, 0);
    m_detail = new EmailDetailView(m_appState, m_detailState, m_actions);
    messageLayout->addWidget(m_detail);
    connect(m_list, &EmailListView::pageMessageRequested, m_detail, &EmailDetailView::pageBody);
    return new MailColumns(m_listColumn, message);
}

void MainScreen::render() {
    const bool showsMail = !m_appState->navigationDestination.get();
    m_content->setCurrentWidget(showsMail ? m_mailView : static_cast<QWidget *>(m_destination));
    m_toasts->setToast(m_state->toast);
    renderMail();
}

void MainScreen::renderMail() {
    const auto folder = m_state->selectedFolder();
    m_listColumn->setCurrentWidget(folder ? static_cast<QWidget *>(m_list) : m_noFolder);
    if (!folder)
        return m_detailState->show(std::nullopt);
    m_listState->setFolder(*folder);
    const auto uid = m_appState->selectedEmailUID.get();
    m_detailState->show(uid ? std::optional(EmailWindowRef{*uid, requestFolder(folder->path)}) : std::nullopt);
}

void MainScreen::connectKeyboard() {
    // When the folder is on show.
    connect(m_sidebar, &SidebarView::folderEntered, m_list, &EmailListView::focusRows, Qt::QueuedConnection);
    connect(m_state.get(), &MainScreenState::navigated, m_list, &EmailListView::focusRows, Qt::QueuedConnection);
    connect(new QShortcut(Qt::Key_F6, this), &QShortcut::activated, this, [this] { walkPanes(1); });
    connect(new QShortcut(Qt::SHIFT | Qt::Key_F6, this), &QShortcut::activated, this, [this] { walkPanes(-1); });
}

std::vector<QWidget *> MainScreen::panes() const {
    std::vector<QWidget *> panes{m_sidebar, m_list, m_destination};
    if (m_detailState->content() == EmailDetailState::Content::message)
        panes.push_back(m_detail);
    std::erase_if(panes, [](const QWidget *pane) { return !pane->isVisible(); });
    return panes;
}

void MainScreen::focusPane(QWidget *pane) {
    window()->setAttribute(Qt::WA_KeyboardFocusChange);
    if (pane == m_sidebar)
        m_sidebar->focusFolders();
    else if (pane == m_detail)
        m_detail->focusBody();
    else if (pane == m_destination)
        m_destination->focusSection();
    else if (m_listState->content() == EmailListState::Content::rows)
        m_list->focusRows();
    else
        m_list->focusSearch();
}

void MainScreen::walkPanes(int step) {
    const auto shown = panes();
    const auto count = int(shown.size());
    const auto hasFocus = [](const QWidget *pane) { return pane->isAncestorOf(QApplication::focusWidget()); };
    const auto place = int(std::ranges::find_if(shown, hasFocus) - shown.begin());
    // With the focus in none of them, the first one follows and the last one goes before.
    const int from = place < count ? place : (step > 0 ? count - 1 : 0);
    focusPane(shown[std::size_t((from + step + count) % count)]);
}

void MainScreen::warmUpWhenListIsShown() {
    if (m_hasWarmedUp || m_listState->content() == EmailListState::Content::skeleton)
        return;
    m_hasWarmedUp = true;
    m_warmUp = Clock::shared().after(warmUpDelay, [] { EmailHTMLView::warmUp(); });
}
