// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/color.h"
#include "platform/font.h"
#include "platform/view.h"

namespace platform {

/// A label: text that is read, not edited.
class NSTextField : public NSView {
 public:
  /// On one line.
  static std::shared_ptr<NSTextField> labelWithString(std::string_view text);
  /// Wrapped between words.
  static std::shared_ptr<NSTextField> wrappingLabelWithString(std::string_view text);

  void setFont(const NSFont& font) { font_ = font; }
  void setTextColor(const NSColor& color) { color_ = color; }
  /// Where a wrapping label breaks its lines, in points.
  void setPreferredMaxLayoutWidth(double width) { maxWidth_ = width; }

  const std::string& text() const { return text_; }
  bool wraps() const { return wraps_; }
  const NSFont& font() const { return font_; }
  const NSColor& textColor() const { return color_; }
  double preferredMaxLayoutWidth() const { return maxWidth_; }

 private:
  NSTextField(std::string_view text, bool wraps) : NSView(NSRect{}), text_(text), wraps_(wraps) {}

  std::string text_;
  bool wraps_;
  NSFont font_ = NSFont::systemFontOfSize(13);
  NSColor color_ = NSColor::labelColor();
  double maxWidth_ = 0;
};

inline std::shared_ptr<NSTextField> NSTextField::labelWithString(std::string_view text) {
  return std::shared_ptr<NSTextField>(new NSTextField(text, false));
}

inline std::shared_ptr<NSTextField> NSTextField::wrappingLabelWithString(std::string_view text) {
  return std::shared_ptr<NSTextField>(new NSTextField(text, true));
}

}  // namespace platform
