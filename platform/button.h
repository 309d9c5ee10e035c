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
  static std::shared_ptr<NSButton> buttonWithImage(const std::optional<NSImage>& image,
                                                   const std::weak_ptr<NSObject>& target, Selector action);

  /// Replaces the image, and with it the accessible name; none empties the button.
  void setImage(const std::optional<NSImage>& image);
  void setBordered(bool bordered);
  /// The colour in which the image is drawn.
  void setContentTintColor(NSColor);
  /// Makes the button as large as its image.
  void sizeToFit();

  const std::optional<NSImage>& image() const { return image_; }

 private:
  NSButton(std::optional<NSImage> image, std::weak_ptr<NSObject> target, Selector action,
           std::shared_ptr<Native> native);
  void click();

  std::optional<NSImage> image_;
  std::weak_ptr<NSObject> target_;
  Selector action_;
};

}  // namespace platform
