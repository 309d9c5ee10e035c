// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "platform/geometry.h"
#include "platform/layout.h"
#include "platform/object.h"

namespace platform {

/// Which margins and dimensions of a view take up a change of its superview's size; the bits add up.
enum NSAutoresizingMask : unsigned {
  NSViewNotSizable = 0,
  NSViewMinXMargin = 1,
  NSViewWidthSizable = 2,
  NSViewMaxXMargin = 4,
  NSViewMinYMargin = 8,
  NSViewHeightSizable = 16,
  NSViewMaxYMargin = 32,
};

/// A rectangle of a window. Frames and autoresizing are arithmetic, the same on every platform.
class NSView : public NSObject {
 public:
  explicit NSView(NSRect frame);
  ~NSView() override;

  /// In the superview's coordinates.
  NSRect frame() const { return frame_; }
  /// In the view's own coordinates: the frame with its origin at 0, 0.
  NSRect bounds() const { return {{}, frame_.size}; }

  /// Moves and resizes the view; its subviews follow by their masks.
  void setFrame(NSRect);
  void setFrameOrigin(NSPoint);
  /// The sum of NSAutoresizingMask bits. With several that are flexible on one axis, they share evenly.
  void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }

  NSLayoutAnchor widthAnchor() { return {this, NSLayoutAttributeWidth}; }
  NSLayoutAnchor heightAnchor() { return {this, NSLayoutAttributeHeight}; }
  NSLayoutAnchor topAnchor() { return {this, NSLayoutAttributeTop}; }
  NSLayoutAnchor bottomAnchor() { return {this, NSLayoutAttributeBottom}; }
  NSLayoutAnchor leadingAnchor() { return {this, NSLayoutAttributeLeading}; }
  NSLayoutAnchor trailingAnchor() { return {this, NSLayoutAttributeTrailing}; }
  /// False: the view is placed by constraints, in a popover. True, the default: by frames and masks, in a window.
  void setTranslatesAutoresizingMaskIntoConstraints(bool translates) { placedByFrame_ = translates; }
  bool translatesAutoresizingMaskIntoConstraints() const { return placedByFrame_; }
  /// Those that are active and have an anchor of this view first.
  const std::vector<NSLayoutConstraint>& constraints() const { return constraints_; }

  /// Puts `view` into this one, above the subviews that are there. This view keeps it.
  void addSubview(std::shared_ptr<NSView> view);

  const std::vector<std::shared_ptr<NSView>>& subviews() const { return subviews_; }

  /// What the platform keeps for this view; opaque to everybody else.
  struct Native;
  Native& native() const { return *native_; }

 protected:
  NSView(NSRect frame, std::shared_ptr<Native> native);
  void setFrameSize(NSSize size) { setFrame({frame_.origin, size}); }

 private:
  friend struct NSLayoutConstraint;

  NSRect frameAfterResize(NSSize before, NSSize now) const;
  // A platform's part of the calls above.
  void showFrame();
  void showSubview(NSView& view);
  void dropSubview(NSView& view);

  NSRect frame_;
  unsigned autoresizingMask_ = NSViewNotSizable;
  bool placedByFrame_ = true;
  std::vector<NSLayoutConstraint> constraints_;
  NSView* superview_ = nullptr;
  std::shared_ptr<Native> native_;
  std::vector<std::shared_ptr<NSView>> subviews_;
};

}  // namespace platform
