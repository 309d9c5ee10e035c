// SPDX-License-Identifier: MIT
#pragma once

namespace platform::desktop {

/// Of the note's window, in points. The title bar is opaque: text is cut below it.
constexpr int titleBarHeight = 28;

}  // namespace platform::desktop
