#include "ui/screens/SidebarSplitView.h"

#include "ui/PaneLayout.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {
const auto autosaveName = u"Corvanite.Sidebar"_s;
} // namespace

SidebarSplitView::SidebarSplitView(QWidget *sidebar, QWidget *content, UserDefaults &defaults, QWidget *parent)
    : QSplitter(Qt::Horizontal, parent)
    , m_defaults(defaults) {
    sidebar->setMinimumWidth(PaneLayout::sidebarMinimum);
    sidebar->setMaximumWidth(PaneLayout::sidebarMaximum);
    addWidget(sidebar);
    addWidget(content);
    setChildrenCollapsible(false);
    setStretchFactor(0, 0);
    setStretchFactor(1, 1);
    const auto stored = defaults.integer(autosaveName).value_or(PaneLayout::sidebarIdeal);
    const int width = int(std::clamp<qint64>(stored, PaneLayout::sidebarMinimum, PaneLayout::sidebarMaximum));
    setSizes({width, content->sizeHint().width()});
    // A drag moves the divider many times a second; the place where it rests is the one to keep.
    connect(this, &QSplitter::splitterMoved, this,
            [this] { m_pendingStore = Clock::shared().after(300ms, [this] { storeWidth(); }); });
}

SidebarSplitView::~SidebarSplitView() {
    if (m_pendingStore)
        storeWidth();
}

void SidebarSplitView::storeWidth() {
    m_pendingStore.reset();
    m_defaults.set(autosaveName, sizes().constFirst());
}
