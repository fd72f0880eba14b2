#pragma once

#include "mail/EmailDragData.h"

class QWidget;

/// Drags messages out of a list, under a card with this subject or with their number. Returns when they are dropped,
/// and whether somebody took them.
bool dragEmails(QWidget *list, const std::vector<EmailDragData> &items, const QString &subject);
