#pragma once

#include <QString>

/// A count of bytes as a person reads it: "1023 B", "1.0 KB", "2.5 MB".
QString fileSizeText(qint64 bytes);
