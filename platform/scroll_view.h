// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/text_view.h"
#include "platform/view.h"

namespace platform {

/// A view onto a text view that may be taller than itself. The text runs under a transparent title bar that lies
/// over it, and is never readable through the title.
class NSScrollView : public NSView {
 public:
  explicit NSScrollView(NSRect frame);

  void setHasVerticalScroller(bool shown);
  void setDrawsBackground(bool draws);
  /// The room for the document, in points: scrollers take none of it away.
  NSSize contentSize() const { return frame().size; }
  /// Shows `view`, which is kept; may be called once.
  void setDocumentView(const std::shared_ptr<NSTextView>& view);

 private:
  bool hasVerticalScroller_ = false;
};

}  // namespace platform
