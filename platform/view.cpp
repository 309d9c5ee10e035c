// SPDX-License-Identifier: MIT
#include "platform/view.h"

#include <utility>

namespace platform {
NSView::~NSView() {
  for (const auto& view : subviews_) {
    dropSubview(*view);
    view->superview_ = nullptr;
  }
}

void NSView::setFrame(NSRect frame) {
  const NSSize before = frame_.size;
  frame_ = frame;
  showFrame();
  if (before == frame.size) return;
  for (const auto& view : subviews_) view->setFrame(view->frameAfterResize(before, frame.size));
}

void NSView::setFrameOrigin(NSPoint origin) { setFrame({origin, frame_.size}); }

void NSView::addSubview(std::shared_ptr<NSView> view) {
  view->superview_ = this;
  subviews_.push_back(std::move(view));
  showSubview(*subviews_.back());
}

NSRect NSView::frameAfterResize(NSSize before, NSSize now) const {
  NSRect frame = frame_;
  const auto takeUp = [this](double change, unsigned bit, double& length) {
    if ((autoresizingMask_ & bit) != 0) length += change;
  };
  takeUp(now.width - before.width, NSViewMinXMargin, frame.origin.x);
  takeUp(now.width - before.width, NSViewWidthSizable, frame.size.width);
  takeUp(now.height - before.height, NSViewMinYMargin, frame.origin.y);
  takeUp(now.height - before.height, NSViewHeightSizable, frame.size.height);
  return frame;
}

}  // namespace platform
