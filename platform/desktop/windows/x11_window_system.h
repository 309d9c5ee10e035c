// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/desktop/windows/window_system.h"

struct xcb_connection_t;

namespace platform::desktop {

/// Window managers under X11, by the rules of EWMH. `connection` is Qt's and stays its own.
/// Escape reaches the window's focus even while an input method composes.
std::unique_ptr<WindowSystem> makeX11WindowSystem(xcb_connection_t* connection);

}  // namespace platform::desktop
