#pragma once

#include <QString>

class WebProfile;

/// Where the engine is to look for dictionaries.
QString spellingFolder();

/// Has the profile's editable pages checked in the person's languages, as far as the system has dictionaries of them.
/// A dictionary that is not in the engine's form is converted once, in the background, where the converter is
/// installed.
void checkSpelling(WebProfile *profile);
