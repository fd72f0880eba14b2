#pragma once

#include <QString>

/// A related message to which the message screen can go on.
struct EmailNavItem {
    qint64 uid = 0;
    QString folderPath;

    bool operator==(const EmailNavItem &) const = default;
};
