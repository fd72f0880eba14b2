#pragma once

#include <QString>

/// The first `limit` characters of the text with each run of white space as one blank, none at the ends.
QString compactPreview(const QString &text, qsizetype limit);
