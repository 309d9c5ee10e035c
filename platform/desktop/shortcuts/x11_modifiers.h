// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <vector>

namespace platform::desktop {

/// Which bits of an event's state are which modifiers on this keyboard.
struct X11Modifiers {
  unsigned alt = XCB_MOD_MASK_1;
  unsigned locks = XCB_MOD_MASK_LOCK;  ///< Caps Lock, and Num Lock and Scroll Lock where they are modifiers

  static X11Modifiers ofKeyboard(xcb_connection_t* connection);

  /// All combinations of the locks, the empty one too: a key is grabbed with each.
  std::vector<unsigned> lockCombinations() const;
  friend bool operator==(const X11Modifiers&, const X11Modifiers&) = default;
};

}  // namespace platform::desktop
