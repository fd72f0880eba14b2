#pragma once

#include "demo/Mailbag.h"

// Each adds the messages of one theme.
void addHarbourThreads(Mailbag &bag);
