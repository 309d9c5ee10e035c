// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <vector>

#include "platform/layout.h"
#include "platform/view.h"

namespace platform {

enum NSUserInterfaceLayoutOrientation {
  NSUserInterfaceLayoutOrientationHorizontal = 0,
  NSUserInterfaceLayoutOrientationVertical = 1,
};

/// Views in a row or a column.
class NSStackView : public NSView {
 public:
  static std::shared_ptr<NSStackView> stackViewWithViews(std::initializer_list<std::shared_ptr<NSView>> views);

  void setOrientation(NSUserInterfaceLayoutOrientation orientation) { orientation_ = orientation; }
  /// Across the direction of the stack: NSLayoutAttributeLeading or NSLayoutAttributeCenterY.
  void setAlignment(NSLayoutAttribute alignment) { alignment_ = alignment; }
  /// Between neighbours, in points.
  void setSpacing(double spacing) { spacing_ = spacing; }
  /// Between this view and the next, in place of the stack's own.
  void setCustomSpacing(double spacing, const NSView& after) { customSpacing_[&after] = spacing; }

  NSUserInterfaceLayoutOrientation orientation() const { return orientation_; }
  NSLayoutAttribute alignment() const { return alignment_; }
  double spacingAfter(const NSView& view) const;

 private:
  NSStackView() : NSView(NSRect{}) {}

  NSUserInterfaceLayoutOrientation orientation_ = NSUserInterfaceLayoutOrientationHorizontal;
  NSLayoutAttribute alignment_ = NSLayoutAttributeCenterY;
  double spacing_ = 8;
  std::map<const NSView*, double> customSpacing_;
};

inline std::shared_ptr<NSStackView> NSStackView::stackViewWithViews(
    std::initializer_list<std::shared_ptr<NSView>> views) {
  std::shared_ptr<NSStackView> stack(new NSStackView);
  for (const auto& view : views) stack->addSubview(view);
  return stack;
}

inline double NSStackView::spacingAfter(const NSView& view) const {
  const auto custom = customSpacing_.find(&view);
  return custom == customSpacing_.end() ? spacing_ : custom->second;
}

}  // namespace platform
