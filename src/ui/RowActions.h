#pragma once

#include "ui/MenuEntry.h"

/// What can be done to one row of a list.
struct RowActions {
    /// What pushing the row to the right lays open, and to the left; the first one is the nearest to the row's edge.
    std::vector<MenuEntry> leading, trailing;
    std::vector<MenuSection> menu;
};
