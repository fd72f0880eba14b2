#pragma once

#include "mail/EmailListState.h"
#include "ui/RowActions.h"

RowActions emailRowActions(const EmailListState &list, const EmailSummary &email);
/// Where the selected messages can go.
std::vector<MenuSection> moveMenu(const EmailListState &list);
std::vector<MenuSection> filterMenu(const EmailListState &list);
