#pragma once

namespace platform {

enum class NSFontWeight { Regular };

/// A font of the system by its role; a platform chooses the face when something is shown in it.
struct NSFont {
  double pointSize = 0;  ///< in points, that is device-independent pixels
  NSFontWeight weight = NSFontWeight::Regular;

  static NSFont monospacedSystemFontOfSize(double size, NSFontWeight weight) { return {size, weight}; }
};

}  // namespace platform
