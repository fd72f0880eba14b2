#pragma once

#include <QIcon>

/// The desktop's icon of a content type, else a symbol of the program's own.
QIcon attachmentIcon(const QString &mime);
