#include "app/screens/DestinationView.h"

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
                                {"doc.text", "Templates"},
                                {"person.crop.rectangle", "Contacts"},
                                {"sparkles", "AI Assistant"},
                                {"sparkles", "AI Auto-Reply"},
                                {"chart.bar", "AI Usage"},
                                {"folder", "Folder Management"},
                                {"folder", "Folder Sharing"}};

} // namespace

DestinationView::DestinationView(QWidget *parent)
    : QWidget(parent)
    , m_content(new EmptyStateView) {
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_content);
}

void DestinationView::showSection(AppDestination destination) {
    const auto &section = sections[static_cast<int>(destination)];
    m_content->setTexts({QString::fromLatin1(section.symbol), QString::fromLatin1(section.title),
                         tr("This section is not part of this version yet. Choose a folder to go back to your mail.")});
}
