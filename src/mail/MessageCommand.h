#pragma once

#include <QString>
#include <functional>

/// An entry of a menu about a message.
struct MessageCommand {
    QString title;
    /// The name of a symbol.
    QString icon;
    bool isDestructive = false;
    std::function<void()> run;
};
