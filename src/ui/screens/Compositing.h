#pragma once

/// Whether windows can be partly transparent here: always but on an X11 screen without a compositing manager.
/// Asks the X server: not for use while painting.
bool isComposited();
