// SPDX-License-Identifier: MIT
#include "platform/popover.h"

#include <algorithm>
#include <utility>

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct NSPopover::Impl {
  bool wasShown = false;
};

NSPopover::NSPopover() : impl_(std::make_unique<Impl>()) {}
NSPopover::~NSPopover() = default;

void NSPopover::showRelativeToRect(NSRect rect, NSView& anchor, NSRectEdge preferredEdge) {
  if (std::exchange(impl_->wasShown, true)) return;
  world().record("popover show edge " + std::to_string(preferredEdge));
  world().popovers.push_back({std::static_pointer_cast<NSPopover>(shared_from_this()), &anchor, rect});
}

void NSPopover::performClose(NSObject* /*sender*/) {
  const auto self = shared_from_this();  // a button inside it may be what closes it
  const auto closed = std::erase_if(
      world().popovers, [this](const headless::ShownPopover& shown) { return shown.popover.get() == this; });
  if (closed != 0) world().record("popover close");
}

namespace headless {

const std::vector<ShownPopover>& shownPopovers() { return world().popovers; }

void pressOutsidePopovers() {
  std::erase_if(world().popovers,
                [](const ShownPopover& shown) { return shown.popover->behavior() == NSPopoverBehaviorTransient; });
}

namespace {

NSButton* findButton(const NSView& view, std::string_view title) {
  for (const auto& subview : view.subviews()) {
    auto* const button = dynamic_cast<NSButton*>(subview.get());
    if (button != nullptr && button->title() == title) return button;
    if (NSButton* const below = findButton(*subview, title)) return below;
  }
  return nullptr;
}

}  // namespace

NSButton* buttonIn(const NSView& view, std::string_view title) { return findButton(view, title); }

}  // namespace headless
}  // namespace platform
