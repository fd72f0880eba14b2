#pragma once

#include <QString>

/// The address that is talked to while none is stored; set when the program is built.
QString defaultServerEndpoint();

/// The stored address of the server, else the default one. No trailing slash. Any thread.
QString currentServerAddress();

/// The form in which an address that a person typed is stored: trimmed, without one trailing slash, with "https://" in
/// front unless it begins with "http".
QString normalizedServerAddress(const QString &text);
