// SPDX-License-Identifier: MIT
#pragma once

namespace platform::desktop {

/// Of the main window, in points. The title bar is opaque and covers the top of the text view.
constexpr int titleBarHeight = 28;

}  // namespace platform::desktop
