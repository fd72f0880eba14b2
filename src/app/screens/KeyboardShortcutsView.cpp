#include "app/screens/KeyboardShortcutsView.h"

#include "app/KeyboardShortcuts.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/KeyCapView.h"
#include "ui/screens/SymbolView.h"
#include "ui/screens/ThemeLabel.h"

#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

constexpr int symbolSize = 16;
constexpr int largestHeight = 620;

QWidget *makeRow(const ShortcutItem &item) {
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(new ThemeLabel(item.description), 1);
    const auto caps = keyCaps(item.keys);
    for (const auto &cap : caps) {
        if (&cap != &caps.front())
            layout->addWidget(new ThemeLabel(QStringLiteral("+"), TextStyle::caption, TextRole::secondary));
        layout->addWidget(new KeyCapView(cap));
    }
    return row;
}

} // namespace

KeyboardShortcutsView::KeyboardShortcutsView(QWidget *parent)
    : Sheet(tr("Keyboard Shortcuts"), {}, parent) {
    setAttribute(Qt::WA_DeleteOnClose);
    auto *list = new QWidget;
    auto *sections = new QVBoxLayout(list);
    sections->setContentsMargins(0, 0, 12, 0);
    sections->setSpacing(20);
    for (const auto &section : keyboardShortcutSections())
        sections->addWidget(makeSection(section));

    auto *scroll = new QScrollArea;
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->viewport()->setAutoFillBackground(false);
    scroll->setWidget(list);
    list->setAutoFillBackground(false);
    scroll->setAccessibleName(windowTitle());
    scroll->setMinimumWidth(list->sizeHint().width() + 60);
    scroll->setMinimumHeight(std::min({list->sizeHint().height(), largestHeight, parent->height() - 140}));
    column()->addWidget(scroll);

    auto *close = new IconButton(QStringLiteral("xmark.circle.fill"), tr("Close"));
    connect(close, &IconButton::clicked, this, &QDialog::accept);
    addHeaderButton(close);
    scroll->setFocus();
}

QWidget *KeyboardShortcutsView::makeSection(const ShortcutSection &section) {
    auto *view = new QWidget;
    auto *rows = new QVBoxLayout(view);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(8);
    auto *heading = new QHBoxLayout;
    heading->setSpacing(8);
    heading->addWidget(new SymbolView(section.icon, symbolSize));
    heading->addWidget(new ThemeLabel(section.title, TextStyle::headline), 1);
    rows->addLayout(heading);
    for (const auto &item : section.items)
        rows->addWidget(makeRow(item));
    return view;
}
