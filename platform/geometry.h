// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace platform {

/// Lengths are points: one device-independent pixel each. The y axis grows upward.
struct NSPoint {
  double x = 0;
  double y = 0;
  friend bool operator==(const NSPoint&, const NSPoint&) = default;
};

struct NSSize {
  double width = 0;
  double height = 0;
  friend bool operator==(const NSSize&, const NSSize&) = default;
};

struct NSRect {
  NSPoint origin;  ///< the lower left corner
  NSSize size;

  double minX() const { return origin.x; }
  double minY() const { return origin.y; }
  double maxX() const { return origin.x + size.width; }
  double maxY() const { return origin.y + size.height; }
  friend bool operator==(const NSRect&, const NSRect&) = default;
};

/// A stretch of text, counted in UTF-16 units.
struct NSRange {
  std::size_t location = 0;
  std::size_t length = 0;
  friend bool operator==(const NSRange&, const NSRange&) = default;
};

}  // namespace platform
