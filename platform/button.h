// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/color.h"
#include "platform/image.h"
#include "platform/view.h"

namespace platform {

enum NSBezelStyle { NSBezelStyleRounded = 1 };

/// A push button. Its accessible name is the description of its image.
class NSButton : public NSView {
 public:
  /// A click performs `action` on `target` with the button as sender. A target that is gone does nothing.
  /// A button that has no action is disabled.
  static std::shared_ptr<NSButton> buttonWithImage(const std::optional<NSImage>& image,
                                                   const std::weak_ptr<NSObject>& target, Selector action);

  /// The standard push button. A click performs `action` on `target`, as above.
  static std::shared_ptr<NSButton> buttonWithTitle(std::string_view title, const std::weak_ptr<NSObject>& target,
                                                   Selector action);
  /// NSBezelStyleRounded is the one style there is.
  void setBezelStyle(NSBezelStyle /*style*/) {}
  /// Return ("\r") makes it the default button of its popover.
  void setKeyEquivalent(std::string key) { keyEquivalent_ = std::move(key); }
  const std::string& keyEquivalent() const { return keyEquivalent_; }
  const std::string& title() const { return title_; }
  const NSColor& contentTintColor() const { return tint_; }

  /// What a click does.
  void performClick();

  /// Replaces the image, and with it the accessible name; none empties the button.
  void setImage(const std::optional<NSImage>& image);
  void setBordered(bool bordered);
  /// The colour in which the image is drawn, or of the face behind a title.
  void setContentTintColor(const NSColor& color);
  /// Makes the button as large as its image.
  void sizeToFit();

  const std::optional<NSImage>& image() const { return image_; }

 private:
  NSButton(std::optional<NSImage> image, std::weak_ptr<NSObject> target, Selector action,
           std::shared_ptr<Native> native);

  std::optional<NSImage> image_;
  std::weak_ptr<NSObject> target_;
  Selector action_;
  std::string title_;
  std::string keyEquivalent_;
  NSColor tint_ = NSColor::labelColor();
};

}  // namespace platform
