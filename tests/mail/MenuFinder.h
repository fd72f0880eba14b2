#pragma once

#include "ui/MenuEntry.h"

#include <QStringList>
#include <stdexcept>

/// The texts of all entries, those of a menu below with the way to them.
inline QStringList entryTexts(const std::vector<MenuSection> &sections, const QString &way = {}) {
    QStringList texts;
    for (const auto &section : sections)
        for (const auto &entry : section) {
            texts.append(way + entry.text);
            texts.append(entryTexts({entry.children}, way + entry.text + QStringLiteral(" > ")));
        }
    return texts;
}

/// The entry at the end of a way through the menus.
inline MenuEntry entryNamed(const std::vector<MenuSection> &sections, const QStringList &way) {
    for (const auto &section : sections)
        for (const auto &entry : section)
            if (entry.text == way.first())
                return way.size() == 1 ? entry : entryNamed({entry.children}, way.mid(1));
    throw std::runtime_error("no such entry");
}
