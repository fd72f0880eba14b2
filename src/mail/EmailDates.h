#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

/// The date of a message as the server writes it, ISO 8601 or the form of a mail header, in local time. An absent or
/// unreadable text counts as now.
QDateTime parseEmailDate(const std::optional<QString> &text);

/// The date as a list shows it: the time today, the day name within a week, else the day, with the year when it is not
/// the present one.
QString relativeDateText(const QDateTime &date);
