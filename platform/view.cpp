// SPDX-License-Identifier: MIT
#include "platform/view.h"

#include <bit>
#include <utility>

namespace platform {
namespace {

/// One axis of autoresizing. `mask` has the axis' three bits in its lowest places: near margin, size, far margin.
std::pair<double, double> stretched(double position, double size, double change, unsigned mask) {
  const int flexible = std::popcount(mask & 7U);
  if (flexible == 0) return {position, size};
  const double share = change / flexible;
  if ((mask & 1U) != 0) position += share;
  if ((mask & 2U) != 0) size += share;
  return {position, size};
}

}  // namespace

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
  const auto [x, width] =
      stretched(frame_.origin.x, frame_.size.width, now.width - before.width, autoresizingMask_ & 7U);
  const auto [y, height] =
      stretched(frame_.origin.y, frame_.size.height, now.height - before.height, autoresizingMask_ >> 3U);
  return {{x, y}, {width, height}};
}

}  // namespace platform
