#include "app/screens/DestinationView.h"

#include "rules/screens/ContactListView.h"
#include "rules/screens/TemplateListView.h"
#include "ui/screens/EmptyStateView.h"

#include <QVBoxLayout>

namespace {

struct Section {
    const char *symbol, *title;
};

/// In the order of `AppDestination`.
constexpr Section sections[] = {{"gearshape", "Settings"},
                                {"person.2.badge.gearshape", "Administration"},
                                {"lock.shield", "Security"},
                                {"bubble.left.and.bubble.right", "Chat"},
                                {"line.3.horizontal.decrease.circle", "Filters"},
                                {"nosign", "Blocked"},
                                {"doc.text", "Quick Reply Templates"},
                                {"person.crop.rectangle", "Contacts"},
                                {"sparkles", "AI Assistant"},
                                {"sparkles", "AI Auto-Reply"},
                                {"chart.bar", "AI Usage"},
                                {"folder", "Folder Management"},
                                {"folder", "Folder Sharing"}};

SectionPage *makeMissingSection(AppDestination destination) {
    const auto &section = sections[static_cast<int>(destination)];
    const auto title = QString::fromLatin1(section.title);
    auto *page = new SectionPage(title);
    page->column()->addWidget(new EmptyStateView(
        {QString::fromLatin1(section.symbol), title,
         DestinationView::tr(
             "This section is not part of this version yet. Choose a folder to go back to your mail.")}));
    return page;
}

SectionPage *makeSection(AppDestination destination) {
    switch (destination) {
    case AppDestination::templates:
        return new TemplateListView(TemplateListState::make());
    case AppDestination::contacts:
        return new ContactListView(ContactListState::make());
    default:
        return makeMissingSection(destination);
    }
}

} // namespace

DestinationView::DestinationView(std::shared_ptr<AppState> appState, QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_layout(new QVBoxLayout(this)) {
    m_layout->setContentsMargins(0, 0, 0, 0);
    observe(m_appState.get(), this, &DestinationView::render);
}

void DestinationView::render() {
    const auto destination = m_appState->navigationDestination.get();
    if (std::exchange(m_shown, destination) == destination)
        return;
    leaveSection();
    if (destination)
        showSection(*destination);
}

void DestinationView::showSection(AppDestination destination) {
    m_section = makeSection(destination);
    m_layout->addWidget(m_section);
    connect(m_section, &SectionPage::backRequested, m_appState.get(),
            [this] { m_appState->navigationDestination = std::nullopt; });
}

void DestinationView::focusSection() {
    const auto takesTab = [this](const QWidget *widget) {
        return isAncestorOf(widget) && widget->isVisible() && widget->isEnabled() &&
               widget->focusPolicy() & Qt::TabFocus;
    };
    auto *widget = nextInFocusChain();
    while (widget != this && !takesTab(widget))
        widget = widget->nextInFocusChain();
    widget->setFocus(Qt::ShortcutFocusReason);
}

void DestinationView::leaveSection() {
    if (!m_section)
        return;
    // On the way back to the mail it stays until the page goes, which takes the keyboard along to the mail.
    m_section->setVisible(!m_shown);
    m_section->deleteLater();
    m_section = nullptr;
}
