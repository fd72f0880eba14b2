#pragma once

#include <QString>

/// A name that is safe to give to a file: what separates folders, and control characters, become underscores.
QString safeFileName(const QString &text);
