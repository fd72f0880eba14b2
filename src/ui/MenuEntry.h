#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

/// One entry of a menu, or one of a row's actions: what it says and what it does.
struct MenuEntry {
    QString text;
    /// Name of a symbol; empty for none.
    QString icon;
    std::function<void()> perform;
    bool isDestructive = false;
    bool isEnabled = true;
    /// Absent for an entry that is not a choice between on and off.
    std::optional<bool> isChecked;
    /// The entries of a menu below this one.
    std::vector<MenuEntry> children;
};

/// The entries of a menu between two dividers.
using MenuSection = std::vector<MenuEntry>;
