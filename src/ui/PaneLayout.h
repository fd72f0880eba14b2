#pragma once

#include "platform/UserDefaults.h"

/// The widths of the main window's panes, in pixels that do not depend on the screen.
struct PaneLayout {
    static constexpr int sidebarMinimum = 205;
    static constexpr int sidebarIdeal = 240;
    static constexpr int sidebarMaximum = 340;

    static constexpr double listMinimum = 260;
    static constexpr double listDefault = 360;
    static constexpr double messageMinimum = 320;
    static constexpr double messageIdeal = 620;
    static constexpr double dividerWidth = 16;
    static constexpr double keyStep = 20;
};

/// The widest that the list may be in a content column of this width.
double maximumListWidth(double contentWidth);
/// What a width becomes where the list may be at most `maximum` wide.
double heldListWidth(double width, double maximum);
/// The width that a double click on the divider gives.
double resetListWidth(double maximum);
/// The width after the left or right arrow key.
double narrowerListWidth(double width);
double widerListWidth(double width, double maximum);

/// The width that the person has chosen, whatever room there is for it.
double storedListWidth(const UserDefaults &defaults);
void storeListWidth(UserDefaults &defaults, double width);
