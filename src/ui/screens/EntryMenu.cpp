#include "ui/screens/EntryMenu.h"

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

/// Below the control; the right edges are in line where the window has no room for the menu otherwise.
QPoint placeBelow(const QWidget *control, int menuWidth) {
    const auto *window = control->window();
    const bool fits = control->mapTo(window, QPoint(menuWidth, 0)).x() <= window->width();
    return control->mapToGlobal(QPoint(fits ? 0 : control->width() - menuWidth, control->height() + 2));
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
    auto *menu = makeEntryMenu(sections, control);
    menu->popup(placeBelow(control, menu->sizeHint().width()));
}
