#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>

// Where things stand on the display: without a window manager the main window lies at its top left corner.

/// Of the theme that a new profile has.
inline constexpr QColor primaryColor(0x25, 0x63, 0xeb);
/// A strip across the button "Sign In", where nothing else has the primary colour.
inline constexpr QRect signInButtonArea(440, 440, 8, 50);
/// A strip down the unread dots of the message list.
inline constexpr QRect unreadDotArea(252, 110, 18, 640);
/// The first rows of the message list.
inline constexpr QPoint firstRow(400, 150), secondRow(400, 240);
/// A strip down the message column, within its page.
inline constexpr QRect messageArea(1000, 60, 2, 700);
