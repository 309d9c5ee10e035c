// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/desktop/shortcuts/global_shortcuts.h"
#include "platform/desktop/windows/window_system.h"

namespace platform::desktop {

class Bus;
class FirstFrame;
class ExportedActions;
class ProgramWindows;

/// The one place that knows the kinds of display, X11 and Wayland, and chooses what is made for the one that the
/// program runs on. To be called once Qt has its display.
std::unique_ptr<WindowSystem> makeWindowSystem();
/// The arguments outlive the result.
std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts(RequestQueue& requests, Bus& sessionBus, FirstFrame& firstFrame,
                                                     ProgramWindows& windows, const ExportedActions& actions);

}  // namespace platform::desktop
