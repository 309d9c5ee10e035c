// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/desktop/shortcuts/global_keys.h"
#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

class Bus;
class FirstFrame;
class OfferedCommands;
class ProgramWindows;

/// The one place that knows the kinds of display, X11 and Wayland, and chooses what is made for the one that the
/// program runs on. To be called once Qt has its display.
std::unique_ptr<WindowSystem> makeWindowSystem();
/// What they are given outlives them.
std::unique_ptr<GlobalKeys> makeGlobalKeys(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame,
                                           ProgramWindows& windows, const OfferedCommands& commands);

}  // namespace platform::desktop
