// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "platform/text_view.h"
#include "platform/view.h"

namespace platform {

/// A view onto a text view that may be taller than itself. The window's title bar lies over its upper end and cuts the
/// text there: nothing is read through the title.
class NSScrollView : public NSView {
 public:
  explicit NSScrollView(NSRect frame);

  /// Whether there is one when the text is taller than the view. Has to be called before `setDocumentView`.
  void setHasVerticalScroller(bool shown);
  void setDrawsBackground(bool draws);
  /// The room for the document, in points, while there is no scroller.
  NSSize contentSize() const { return frame().size; }
  /// Shows `view`, which is kept; may be called once.
  void setDocumentView(const std::shared_ptr<NSTextView>& view);

 private:
  bool hasVerticalScroller_ = false;
};

}  // namespace platform
