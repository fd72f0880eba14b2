#include "mail/screens/SidebarView.h"

#include "mail/screens/SidebarList.h"
#include "platform/Tasks.h"
#include "platform/UserDefaults.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/MacSidebarHeader.h"
#include "ui/screens/Symbols.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

SidebarView::SidebarView(std::shared_ptr<AppState> appState, std::shared_ptr<MainScreenState> state, QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_state(std::move(state))
    , m_list(new SidebarList) {
    m_list->setModel(&m_model);
    m_list->accepts = [state = m_state](const auto &items, const MailFolder &folder) {
        return state->acceptsDrop(items, folder);
    };
    connect(
        m_list, &SidebarList::dropped, m_state.get(),
        [state = m_state.get()](const auto &items, const MailFolder &folder) { launch(state->drop(items, folder)); });

    connect(m_list, &SidebarList::folderEntered, this, &SidebarView::folderEntered);

    auto *header = new MacSidebarHeader;
    connect(header, &MacSidebarHeader::composeRequested, m_appState.get(), &AppState::presentCompose);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(header);
    layout->addWidget(m_list, 1);
    layout->addWidget(makeFooter());

    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this, &SidebarView::selectionChanged);
    // The inbox's count is kept there.
    connect(&UserDefaults::standard(), &UserDefaults::changed, this, &SidebarView::render);
    observe(m_state.get(), this, &SidebarView::render);
    observe(m_appState.get(), this, &SidebarView::render);
}

void SidebarView::focusFolders() {
    m_list->setFocus(Qt::ShortcutFocusReason);
}

QWidget *SidebarView::makeFooter() {
    auto *footer = new QWidget;
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(12, 8, 12, 12);
    layout->setSpacing(4);
    layout->addWidget(
        makeDestinationButton(tr("Chat"), QStringLiteral("bubble.left.and.bubble.right"), AppDestination::chat));
    layout->addWidget(
        makeDestinationButton(tr("AI Assistant"), QStringLiteral("sparkles"), AppDestination::aiAssistant));
    layout->addWidget(
        makeDestinationButton(tr("Contacts"), QStringLiteral("person.crop.rectangle"), AppDestination::contacts));
    layout->addWidget(makeDestinationButton(tr("Settings"), QStringLiteral("gearshape"), AppDestination::settings));
    layout->addStretch();
    layout->addWidget(makeAccountButton());
    return footer;
}

QWidget *SidebarView::makeDestinationButton(const QString &title, const QString &symbol, AppDestination destination) {
    auto *button = new IconButton(symbol, title);
    connect(button, &IconButton::clicked, this, [this, destination] { openDestination(destination); });
    return button;
}

QWidget *SidebarView::makeAccountButton() {
    auto *button = new IconButton(QStringLiteral("person.crop.circle"), tr("Account and shortcuts"));
    connect(button, &IconButton::clicked, this, [this, button] { showAccountMenu(button); });
    return button;
}

void SidebarView::showAccountMenu(QWidget *button) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Keyboard Shortcuts"), this, [this] { m_appState->showKeyboardShortcuts = true; });
    const auto &user = m_appState->currentUser.get();
    if (user && user->role == QStringLiteral("admin")) {
        menu->addAction(tr("Administration"), this, [this] { openDestination(AppDestination::admin); });
        menu->addAction(tr("Security"), this, [this] { openDestination(AppDestination::security); });
    }
    menu->addAction(tr("Sign Out"), this, [this] { launch(m_appState->signOut()); });
    menu->popup(button->mapToGlobal(QPoint(0, -menu->sizeHint().height())));
}

void SidebarView::openDestination(AppDestination destination) {
    m_appState->navigationDestination = destination;
}

void SidebarView::render() {
    m_model.setFolders(m_appState->folders);
    const auto path = m_state->selectedFolderPath.get();
    const auto row = path && !m_appState->navigationDestination.get() ? m_model.indexOfPath(*path) : -1;
    const auto wanted = row < 0 ? QModelIndex() : m_model.index(row);
    if (m_list->currentIndex() != wanted)
        m_list->setCurrentIndex(wanted);
}

void SidebarView::selectionChanged() {
    const auto current = m_list->currentIndex();
    if (!current.isValid())
        return;
    m_appState->navigationDestination = std::nullopt;
    m_state->selectFolder(m_model.row(current.row()).folder.path);
}
