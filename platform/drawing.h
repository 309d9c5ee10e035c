// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>
#include <vector>

#include "platform/color.h"
#include "platform/font.h"
#include "platform/geometry.h"

/// What an image's drawing handler draws with. Lengths are points, y grows upward from the image's lower left corner.
/// Outside of a handler the calls do nothing.
namespace platform {

inline NSRect CGRectInset(NSRect rect, double dx, double dy) {
  return {{rect.origin.x + dx, rect.origin.y + dy}, {rect.size.width - 2 * dx, rect.size.height - 2 * dy}};
}
inline double CGRectGetWidth(NSRect rect) { return rect.size.width; }
inline double CGRectGetHeight(NSRect rect) { return rect.size.height; }

/// An outline. Drawn in the colour that was last set for strokes.
class NSBezierPath {
 public:
  static NSBezierPath bezierPathWithRoundedRect(NSRect rect, double xRadius, double yRadius) {
    return NSBezierPath(rect, xRadius, yRadius);
  }

  /// In points; the line is centred on the path.
  void setLineWidth(double width) { lineWidth_ = width; }
  void stroke() const;

  NSRect rect() const { return rect_; }
  double xRadius() const { return xRadius_; }
  double yRadius() const { return yRadius_; }

 private:
  NSBezierPath(NSRect rect, double xRadius, double yRadius) : rect_(rect), xRadius_(xRadius), yRadius_(yRadius) {}

  NSRect rect_;
  double xRadius_;
  double yRadius_;
  double lineWidth_ = 1;
};

/// A linear run through evenly spaced colours.
class NSGradient {
 public:
  explicit NSGradient(std::vector<NSColor> colors) : colors_(std::move(colors)) {}

  /// Fills the path. -90 degrees run from the top to the bottom, which is the one angle there is.
  void drawInBezierPath(const NSBezierPath& path, double angle) const;

 private:
  std::vector<NSColor> colors_;
};

/// The one attribute of drawn text.
struct NSStringAttributes {
  NSFont font;
};

namespace NSString {

/// The room that the text takes, in points.
NSSize sizeWithAttributes(std::string_view text, const NSStringAttributes& attributes);
/// Draws the text with its lower left corner at `point`.
void drawAtPoint(std::string_view text, NSPoint point, const NSStringAttributes& attributes);

}  // namespace NSString
}  // namespace platform
