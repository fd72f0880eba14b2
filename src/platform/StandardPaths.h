#pragma once

#include <QString>
#include <optional>

/// Where settings are kept: `$XDG_CONFIG_HOME/corvanite`.
QString configFolder();

/// Where the program keeps its own data: `$XDG_DATA_HOME/corvanite`.
QString dataFolder();

/// The name of the application group, whose companion processes share a store and a folder with the program.
QString applicationGroupName();

/// The folder of an application group, made if needed for its owner only; absent when it cannot be made.
std::optional<QString> groupContainerFolder(const QString &name);
