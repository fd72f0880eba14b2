#pragma once

#include <QString>

/// Why the web engine would end the whole program if it were started here, for a person to read; empty when it can be
/// started. The engine aborts where others report an error, so what it needs has to be looked at beforehand.
QString unmetWebEngineRequirement();
