#pragma once

#include <QString>

/// The words of an HTML mail, for where it cannot be drawn. Loads nothing; may run on any thread.
QString plainTextFromHTML(const QString &html);
