#pragma once

#include <QString>

/// A name that is safe to give to a file: what separates folders, and control characters, become underscores.
QString safeFileName(const QString &text);

/// The same, shortened in its middle where no file system would take it.
QString storableFileName(const QString &text);
