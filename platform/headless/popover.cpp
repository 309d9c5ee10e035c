#include "platform/popover.h"

#include <algorithm>

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct NSPopover::Impl {};

NSPopover::NSPopover() = default;
NSPopover::~NSPopover() = default;

void NSPopover::showRelativeToRect(NSRect rect, NSView& anchor, NSRectEdge preferredEdge) {
  world().record("popover show edge " + std::to_string(preferredEdge));
  world().popovers.push_back({std::static_pointer_cast<NSPopover>(shared_from_this()), &anchor, rect});
}

void NSPopover::performClose(NSObject* /*sender*/) {
  world().record("popover close");
  std::erase_if(world().popovers, [this](const headless::ShownPopover& shown) { return shown.popover.get() == this; });
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
