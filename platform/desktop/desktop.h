#pragma once

#include <vector>

#include "platform/desktop/window_system.h"
#include "platform/frame_autosave.h"

/// What the parts of the desktop platform share while the application object lives.
namespace platform::desktop {

WindowSystem& windowSystem();

/// In the program's coordinates: y grows upward from the lower edge of the first screen.
std::vector<Screen> screens();
NSRect fromToolkit(const QRect&);
QRect toToolkit(NSRect);

/// Whether the program is about to hide while it had the keyboard, so that the program before it is due.
/// Set when a window with the keyboard is taken off the screen; read and cleared by the hiding application.
void oweFocusToPreviousProgram();

}  // namespace platform::desktop
