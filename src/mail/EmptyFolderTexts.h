#pragma once

#include "mail/FolderRecords.h"
#include "ui/ViewTexts.h"

/// What to say of a folder that has no messages; chosen by its path, then by its name.
ViewTexts emptyFolderTexts(const MailFolder &folder);
