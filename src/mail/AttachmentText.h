#pragma once

#include <QByteArray>
#include <QString>

/// The text of a file: by its byte order mark, else as UTF-8, and as Latin-1 where it is not that.
QString attachmentText(const QByteArray &bytes);
