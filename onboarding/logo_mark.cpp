// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/drawing.h"
#include "platform/image_view.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr double inset = 1;
constexpr double outlineWidth = 1;
constexpr double radiusShare = 0.26;  // of the side
constexpr double emojiShare = 0.52;
constexpr double emojiLift = 1;
constexpr NSColor top = NSColor::colorWithSRGBRed(1.0, 0.91, 0.6, 1.0);
constexpr NSColor bottom = NSColor::colorWithSRGBRed(1.0, 0.847, 0.302, 1.0);
constexpr NSColor outline = NSColor::colorWithSRGBRed(0.91, 0.725, 0.192, 1.0);
constexpr auto emoji = "\U0001F4CC";

/// The fill, over it the outline, over both the pushpin.
bool drawMark(double side, NSRect room) {
  auto path =
      NSBezierPath::bezierPathWithRoundedRect(CGRectInset(room, inset, inset), side * radiusShare, side * radiusShare);
  NSGradient({top, bottom}).drawInBezierPath(path, -90);
  outline.setStroke();
  path.setLineWidth(outlineWidth);
  path.stroke();
  const NSStringAttributes attributes{NSFont::systemFontOfSize(side * emojiShare)};
  const NSSize size = NSString::sizeWithAttributes(emoji, attributes);
  NSString::drawAtPoint(
      emoji, {(CGRectGetWidth(room) - size.width) * 0.5, (CGRectGetHeight(room) - size.height) * 0.5 + emojiLift},
      attributes);
  return true;
}

}  // namespace

std::shared_ptr<NSImageView> AppDelegate::makeLogoMark(double side) {
  auto view = NSImageView::imageViewWithImage(
      NSImage::imageWithSize({side, side}, false, [side](NSRect room) { return drawMark(side, room); }));
  view->setTranslatesAutoresizingMaskIntoConstraints(false);
  view->widthAnchor().constraintEqualToConstant(side).setActive(true);
  view->heightAnchor().constraintEqualToConstant(side).setActive(true);
  return view;
}

}  // namespace quillberry
