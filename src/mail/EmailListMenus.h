#pragma once

#include "mail/EmailListState.h"
#include "mail/MenuEntry.h"

/// What can be done to one row, as its menu shows it.
std::vector<MenuSection> emailRowMenu(const EmailListState &list, const EmailSummary &email);
/// Where the selected messages can go.
std::vector<MenuSection> moveMenu(const EmailListState &list);
std::vector<MenuSection> filterMenu(const EmailListState &list);

/// The actions that pushing a row to the right lays open, and to the left; the first one is the nearest to the edge.
std::vector<MenuEntry> leadingSwipeActions(const EmailListState &list, const EmailSummary &email);
std::vector<MenuEntry> trailingSwipeActions(const EmailListState &list, const EmailSummary &email);
