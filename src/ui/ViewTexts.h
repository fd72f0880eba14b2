#pragma once

#include <QString>

/// What an empty or failed view shows: a symbol's name, a title and a message.
struct ViewTexts {
    QString icon, title, message;

    bool operator==(const ViewTexts &) const = default;
};
