#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/geometry.h"

namespace platform {

/// A picture that a platform draws as shapes, at the resolution of the screen.
struct NSImage {
  std::string symbolName;
  std::string accessibilityDescription;

  bool isTemplate = false;

  /// The system's symbol of that name, such as "info.circle"; none if the system has no such symbol.
  static std::optional<NSImage> imageWithSystemSymbolName(std::string_view name,
                                                          std::string_view accessibilityDescription);

  /// A template is drawn in the one colour that suits its place. Symbols are.
  void setTemplate(bool isOne) { isTemplate = isOne; }

  /// The side of a symbol's square, in points.
  static constexpr double symbolSide = 17;
  friend bool operator==(const NSImage&, const NSImage&) = default;

  NSSize size() const { return {symbolSide, symbolSide}; }
};

}  // namespace platform
