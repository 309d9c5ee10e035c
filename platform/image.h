// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/geometry.h"

namespace platform {

/// A picture that a platform draws as shapes, at the resolution of the screen.
struct NSImage {
  std::string symbolName;
  std::string accessibilityDescription;

  bool isTemplate = false;

  /// Without a name, the picture is what this draws into a rectangle at 0, 0, as often as it is needed, at whatever
  /// resolution; it answers whether it drew. See drawing.h.
  std::function<bool(NSRect)> drawingHandler;
  NSSize drawnSize;

  /// `flipped` is false: y grows upward.
  static NSImage imageWithSize(NSSize size, bool flipped, std::function<bool(NSRect)> drawingHandler);

  /// The system's symbol of that name, such as "info.circle"; none if the system has no such symbol.
  static std::optional<NSImage> imageWithSystemSymbolName(std::string_view name,
                                                          std::string_view accessibilityDescription);

  /// A template is drawn in the one colour that suits its place. Symbols are.
  void setTemplate(bool isOne) { isTemplate = isOne; }

  /// The side of a symbol's square, in points.
  static constexpr double symbolSide = 17;
  NSSize size() const { return drawingHandler ? drawnSize : NSSize{symbolSide, symbolSide}; }
};

inline NSImage NSImage::imageWithSize(NSSize size, bool /*flipped*/, std::function<bool(NSRect)> drawingHandler) {
  NSImage image;
  image.drawingHandler = std::move(drawingHandler);
  image.drawnSize = size;
  return image;
}

}  // namespace platform
