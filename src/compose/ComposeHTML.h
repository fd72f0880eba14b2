#pragma once

#include "mail/EmailRecords.h"

/// The parts that a message is put together from, as HTML. Texts of others go in as they are: the editor's page runs
/// and loads nothing of theirs.

/// Plain text with its lines broken as in HTML; nothing else in it changes.
QString withLineBreaks(QString text);

/// The answered message below the line that says who wrote it.
QString replyQuotation(const EmailDetail &email);

/// The forwarded message below its header lines.
QString forwardQuotation(const EmailDetail &email);

/// What stands below a message; empty for an account without a signature.
QString signatureBlock(const QString &signature);
