// SPDX-License-Identifier: MIT
#pragma once

#include "platform/color.h"
#include "platform/view.h"

namespace platform {

enum NSBoxType { NSBoxCustom = 4 };

/// A filled rectangle.
class NSBox : public NSView {
 public:
  NSBox() : NSView(NSRect{}) {}

  /// NSBoxCustom is the one type there is, and no border the one width.
  void setBoxType(NSBoxType /*type*/) {}
  void setBorderWidth(double /*width*/) {}
  void setFillColor(const NSColor& color) { fill_ = color; }

  const NSColor& fillColor() const { return fill_; }

 private:
  NSColor fill_ = NSColor::labelColor();
};

}  // namespace platform
