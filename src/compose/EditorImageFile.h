#pragma once

#include <QString>

#include <optional>

/// An image file as a data URL of the type that its name tells, or of a PNG if that is no image; absent when the file
/// cannot be read. Blocks.
std::optional<QString> dataURLOfImageFile(const QString &path);
