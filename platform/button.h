#pragma once

#include <memory>

#include "platform/color.h"
#include "platform/image.h"
#include "platform/view.h"

namespace platform {

/// A push button. Its accessible name is the description of its image.
class NSButton : public NSView {
 public:
  /// A click performs `action` on `target` with the button as sender. A target that is gone does nothing.
  /// A button that has no action is disabled.
  static std::shared_ptr<NSButton> buttonWithImage(const NSImage& image, const std::weak_ptr<NSObject>& target,
                                                   Selector action);

  void setBordered(bool bordered);
  /// The colour in which the image is drawn.
  void setContentTintColor(NSColor);
  /// Makes the button as large as its image.
  void sizeToFit() { setFrameSize(image_.size()); }

 private:
  NSButton(NSImage image, std::weak_ptr<NSObject> target, Selector action, std::shared_ptr<Native> native);
  void click();

  NSImage image_;
  std::weak_ptr<NSObject> target_;
  Selector action_;
};

}  // namespace platform
