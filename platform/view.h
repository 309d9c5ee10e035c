// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <vector>

#include "platform/geometry.h"
#include "platform/layout.h"
#include "platform/object.h"

namespace platform {

/// What of a view takes up a change of its superview's size; the bits add up. Without one of an axis, what is beyond
/// the view does.
enum NSAutoresizingMask : unsigned {
  NSViewMinXMargin = 1,
  NSViewWidthSizable = 2,
  NSViewMinYMargin = 8,
  NSViewHeightSizable = 16,
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
  /// The sum of NSAutoresizingMask bits, at most one of an axis.
  void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }

  NSLayoutAnchor widthAnchor() { return {this, NSLayoutAttributeWidth}; }
  NSLayoutAnchor heightAnchor() { return {this, NSLayoutAttributeHeight}; }
  NSLayoutAnchor topAnchor() { return {this, NSLayoutAttributeTop}; }
  NSLayoutAnchor bottomAnchor() { return {this, NSLayoutAttributeBottom}; }
  NSLayoutAnchor leadingAnchor() { return {this, NSLayoutAttributeLeading}; }
  NSLayoutAnchor trailingAnchor() { return {this, NSLayoutAttributeTrailing}; }
  /// Changes nothing: masks never become constraints here. Frames and masks place the views of a window, stacks, grids
  /// and constraints those of a popover.
  void setTranslatesAutoresizingMaskIntoConstraints(bool /*translates*/) {}
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
  unsigned autoresizingMask_ = 0;
  std::vector<NSLayoutConstraint> constraints_;
  NSView* superview_ = nullptr;
  std::shared_ptr<Native> native_;
  std::vector<std::shared_ptr<NSView>> subviews_;
};

}  // namespace platform
