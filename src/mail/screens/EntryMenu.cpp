#include "mail/screens/EntryMenu.h"

#include "ui/screens/ButtonRole.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/Symbols.h"

#include <QMenu>

namespace {

void addEntries(QMenu *menu, const MenuSection &section);

void addSubmenu(QMenu *menu, const MenuEntry &entry) {
    auto *submenu = menu->addMenu(symbolIcon(entry.icon), literalButtonText(entry.text));
    submenu->menuAction()->setEnabled(!entry.children.empty());
    addEntries(submenu, entry.children);
}

void addAction(QMenu *menu, const MenuEntry &entry) {
    auto *action = menu->addAction(symbolIcon(entry.icon), literalButtonText(entry.text), menu, entry.perform);
    action->setEnabled(entry.isEnabled);
    action->setCheckable(entry.isChecked.has_value());
    action->setChecked(entry.isChecked.value_or(false));
    if (entry.isDestructive)
        setDestructive(action);
}

void addEntries(QMenu *menu, const MenuSection &section) {
    for (const auto &entry : section)
        entry.perform ? addAction(menu, entry) : addSubmenu(menu, entry);
}

} // namespace

QMenu *makeEntryMenu(const std::vector<MenuSection> &sections, QWidget *parent) {
    auto *menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto &section : sections) {
        if (!menu->isEmpty() && !section.empty())
            menu->addSeparator();
        addEntries(menu, section);
    }
    return menu;
}

void showEntryMenu(const std::vector<MenuSection> &sections, QWidget *control) {
    makeEntryMenu(sections, control)->popup(control->mapToGlobal(QPoint(0, control->height() + 2)));
}
