#pragma once

#include "support/CoreTest.h"

/// Base of the tests of widgets: lets pass what the `offscreen` platform says of what it cannot do, such as telling a
/// window manager the least size of a window.
class ScreenTest : public CoreTest {
public:
    ScreenTest();
};
