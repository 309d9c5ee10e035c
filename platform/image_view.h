// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <utility>

#include "platform/image.h"
#include "platform/view.h"

namespace platform {

/// Shows an image at its own size.
class NSImageView : public NSView {
 public:
  static std::shared_ptr<NSImageView> imageViewWithImage(NSImage image) {
    return std::shared_ptr<NSImageView>(new NSImageView(std::move(image)));
  }

  const NSImage& image() const { return image_; }

 private:
  explicit NSImageView(NSImage image) : NSView(NSRect{}), image_(std::move(image)) {}

  NSImage image_;
};

}  // namespace platform
