#pragma once

#include <QString>

class WebProfile;

/// Where the engine is to look for dictionaries.
QString spellingFolder();

/// Has what a person writes checked in their languages, as far as the system has dictionaries of them. To be called
/// before the profile's first page, whose process learns the languages once. A dictionary that is not in the engine's
/// form is converted in the background, where the converter is installed, and serves from the next start.
void checkSpelling(WebProfile *profile);
