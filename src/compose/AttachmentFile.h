#pragma once

#include "compose/ComposeRecords.h"

#include <QUrl>

/// What a person knows the file by: the last piece of its address.
QString attachedFileName(const QUrl &url);

/// Reads a file that is to be sent. Blocks; is for `fileWork`. Fails with `Error`.
ComposeAttachment readAttachmentFile(const QUrl &url);
