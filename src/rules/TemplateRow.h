#pragma once

#include "rules/EmailTemplate.h"
#include "ui/ListRow.h"

/// A template's name and subject.
ListRow templateRow(const EmailTemplate &shown);

/// The same above the beginning of its text, without markup.
ListRow templateRowWithPreview(const EmailTemplate &shown);
