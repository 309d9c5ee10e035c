// SPDX-License-Identifier: MIT
#include "platform/status_bar.h"

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct NSStatusItem::Impl {
  std::shared_ptr<NSButton> button = NSButton::buttonWithImage(std::nullopt, {}, {});
};

NSStatusItem::NSStatusItem() : impl_(std::make_unique<Impl>()) {}
NSStatusItem::~NSStatusItem() { world().statusItem = {}; }

NSStatusBar& NSStatusBar::systemStatusBar() {
  static NSStatusBar bar;
  return bar;
}

std::shared_ptr<NSStatusItem> NSStatusBar::statusItemWithLength(double length) {
  world().record("status item length " + std::to_string(static_cast<int>(length)));
  std::shared_ptr<NSStatusItem> item(new NSStatusItem);
  if (world().faults.noStatusButton) item->impl_->button.reset();
  world().statusItem.button = item->impl_->button;
  return item;
}

void NSStatusItem::setAutosaveName(std::string_view name) {
  const auto position =
      NSUserDefaults::standardUserDefaults().objectForKey("NSStatusItem Preferred Position " + std::string(name));
  const double* value = position ? std::get_if<double>(&*position) : nullptr;
  world().record("status item named " + std::string(name));
  world().statusItem.position = value == nullptr ? 0 : *value;
}

const std::shared_ptr<NSButton>& NSStatusItem::button() const { return impl_->button; }

void NSStatusItem::setMenu(const std::shared_ptr<NSMenu>& menu) {
  world().record("status item menu");
  world().statusItem.menu = menu;
}

headless::StatusItemState& headless::statusItem() { return world().statusItem; }

}  // namespace platform
