// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// A colour by its role, which a platform takes from the desktop's palette, in light and dark, when it draws; or one by
/// its sRGB components, each from 0 to 1.
class NSColor {
 public:
  enum class Role { Label, SecondaryLabel, TertiaryLabel, None };

  static constexpr NSColor labelColor() { return NSColor(Role::Label); }
  static constexpr NSColor secondaryLabelColor() { return NSColor(Role::SecondaryLabel); }
  static constexpr NSColor tertiaryLabelColor() { return NSColor(Role::TertiaryLabel); }
  static constexpr NSColor colorWithSRGBRed(double red, double green, double blue, double alpha) {
    NSColor color(Role::None);
    color.red = red;
    color.green = green;
    color.blue = blue;
    color.alpha = alpha;
    return color;
  }

  /// The colour of the strokes that follow, in an image's drawing handler.
  void setStroke() const;

  Role role;
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;

  friend bool operator==(const NSColor&, const NSColor&) = default;

 private:
  constexpr explicit NSColor(Role named) : role(named) {}
};

}  // namespace platform
