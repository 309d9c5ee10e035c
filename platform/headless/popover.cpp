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
  const bool transient = behavior_ == NSPopoverBehaviorTransient;
  const bool withProgram = !transient && world().window != nullptr && !world().window->isVisible();
  (withProgram ? world().hiddenPopovers : world().popovers)
      .push_back({std::static_pointer_cast<NSPopover>(shared_from_this()), &anchor, rect});
  if (transient || withProgram) return;  // a transient one grabs the keyboard and leaves the window the key one
  world().active = true;
  world().keyPopover = this;
}

void NSPopover::performClose(NSObject* /*sender*/) {
  const auto self = shared_from_this();  // a button inside it may be what closes it
  const auto isThis = [this](const headless::ShownPopover& shown) { return shown.popover.get() == this; };
  if (std::erase_if(world().popovers, isThis) + std::erase_if(world().hiddenPopovers, isThis) == 0) return;
  world().record("popover close");
  if (world().keyPopover == this) world().keyPopover = nullptr;
}

namespace headless {

const std::vector<ShownPopover>& shownPopovers() { return world().popovers; }

void pressOutsidePopovers() {
  std::erase_if(world().popovers,
                [](const ShownPopover& shown) { return shown.popover->behavior() == NSPopoverBehaviorTransient; });
}

void hidePopovers() {
  pressOutsidePopovers();  // what is transient closes
  auto& shown = world().popovers;
  world().hiddenPopovers.insert(world().hiddenPopovers.end(), shown.begin(), shown.end());
  shown.clear();
  world().keyPopover = nullptr;
}

void bringPopoversBack() {
  auto& hidden = world().hiddenPopovers;
  world().popovers.insert(world().popovers.end(), hidden.begin(), hidden.end());
  hidden.clear();
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
