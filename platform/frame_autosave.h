// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/geometry.h"

namespace platform {

/// A screen in points; the origin of all of them is the lower left corner of the first.
struct Screen {
  NSRect frame;
  NSRect visibleFrame;  ///< the frame without panels
};

/// A window's frame together with the frame of the screen that it was on.
struct KeptFrame {
  NSRect window;
  NSRect screen;
};

/// Eight whole numbers: x, y, width and height of the window and of its screen.
std::string stringFromFrame(const KeptFrame&);
/// None if the text is not of that form, or has no room in it.
std::optional<KeptFrame> frameFromString(std::string_view);

/// Where a kept frame shows now: unchanged if its screen is still there and the frame is on one, else whole on the
/// screen that it overlaps most, the first by default, and no larger than that. `screens` is not empty.
NSRect frameOnScreens(const KeptFrame&, const std::vector<Screen>& screens);

/// The frame as it is if all of it is in the visible frame of one screen, else moved there, and no larger than that.
NSRect frameWholeOnScreens(NSRect frame, const std::vector<Screen>& screens);

/// The screen that `frame` overlaps most, the first by default.
const Screen& screenOfFrame(NSRect frame, const std::vector<Screen>& screens);

}  // namespace platform
