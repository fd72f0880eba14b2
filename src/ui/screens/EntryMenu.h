#pragma once

#include "ui/MenuEntry.h"

class QMenu;
class QWidget;

/// A menu of these entries, with a divider between the sections; deletes itself once it is closed.
QMenu *makeEntryMenu(const std::vector<MenuSection> &sections, QWidget *parent);
/// Shows such a menu below the control that opens it.
void showEntryMenu(const std::vector<MenuSection> &sections, QWidget *control);
