#pragma once

#include <string>
#include <utility>

#include "platform/geometry.h"

namespace platform {

/// A picture that a platform draws as shapes, at the resolution of the screen.
struct NSImage {
  std::string symbolName;
  std::string accessibilityDescription;

  /// The system's symbol of that name: "info.circle".
  static NSImage imageWithSystemSymbolName(std::string name, std::string accessibilityDescription) {
    return {std::move(name), std::move(accessibilityDescription)};
  }

  /// The side of a symbol's square, in points.
  static constexpr double symbolSide = 17;
  NSSize size() const { return {symbolSide, symbolSide}; }
};

}  // namespace platform
