// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

enum class NSFontWeight { Regular, Semibold, Bold };

/// A font of the system by its role; a platform chooses the face when something is shown in it.
struct NSFont {
  double pointSize = 0;  ///< in points, that is device-independent pixels
  NSFontWeight weight = NSFontWeight::Regular;
  bool monospaced = false;

  static constexpr NSFont systemFontOfSize(double size, NSFontWeight weight = NSFontWeight::Regular) {
    return {size, weight, false};
  }
  static constexpr NSFont monospacedSystemFontOfSize(double size, NSFontWeight weight) { return {size, weight, true}; }
};

}  // namespace platform
