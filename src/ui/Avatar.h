#pragma once

#include <QColor>
#include <QImage>
#include <QString>
#include <array>

/// The colours that an avatar can have, in the order in which they are offered.
const std::array<QString, 15> &avatarColors();

/// The colour that a name always gets.
QString avatarColorForName(const QString &name);

/// One or two upper-case characters that stand for a name; "?" for an empty one.
QString avatarInitials(const QString &name);

/// The picture of an avatar kept as a data URL or as plain Base64; null when it is none.
QImage avatarImage(const QString &text);
