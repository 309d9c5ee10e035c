// SPDX-License-Identifier: MIT
#include "platform/window.h"

#include <algorithm>

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct NSWindow::Impl : headless::WindowParts {};

NSWindow::NSWindow(NSRect contentRect, unsigned styleMask, NSBackingStoreType /*backing*/, bool /*defer*/)
    : impl_(std::make_unique<Impl>()) {
  world().record("window made");
  impl_->content = std::make_shared<NSView>(NSRect{{}, contentRect.size});
  impl_->state.frame = contentRect;
  impl_->state.styleMask = styleMask;
  world().window = this;
  world().windowParts = impl_.get();
}

NSWindow::~NSWindow() {
  world().window = nullptr;
  world().windowParts = nullptr;
}

void NSWindow::setTitlebarAppearsTransparent(bool transparent) { impl_->state.transparentTitlebar = transparent; }
void NSWindow::setReleasedWhenClosed(bool released) { impl_->state.releasedWhenClosed = released; }
void NSWindow::setMinSize(NSSize size) { impl_->state.minSize = size; }
void NSWindow::setDelegate(const std::weak_ptr<NSWindowDelegate>& delegate) { impl_->delegate = delegate; }

void NSWindow::center() {
  const NSRect room = world().screens.front().visibleFrame;
  NSRect& frame = impl_->state.frame;
  frame.origin = {room.minX() + (room.size.width - frame.size.width) / 2,
                  room.minY() + (room.size.height - frame.size.height) / 2};
}

void NSWindow::setFrameAutosaveName(std::string_view name) {
  impl_->autosaveName = "NSWindow Frame " + std::string(name);
  const auto text = NSUserDefaults::standardUserDefaults().stringForKey(impl_->autosaveName);
  const auto kept = text ? frameFromString(*text) : std::nullopt;
  if (kept) headless::moveWindow(frameOnScreens(*kept, world().screens));
}

NSView& NSWindow::contentView() { return *impl_->content; }

void NSWindow::makeKeyAndOrderFront(NSObject* /*sender*/) {
  world().record("window make key and order front");
  impl_->state.visible = true;
  headless::giveWindowTheKeyboard();
}

void NSWindow::orderOut(NSObject* /*sender*/) {
  world().record("window order out");
  if (world().textViewParts != nullptr) headless::commitComposition(*world().textViewParts);
  impl_->state.visible = false;
}

void NSWindow::makeFirstResponder(NSView& view) {
  world().record("window first responder");
  impl_->firstResponder = std::static_pointer_cast<NSView>(view.shared_from_this());
}

std::shared_ptr<NSView> NSWindow::firstResponder() const { return impl_->firstResponder.lock(); }
bool NSWindow::isVisible() const { return impl_->state.visible; }

bool NSWindow::isKeyWindow() const { return impl_->state.visible && world().active && world().keyPopover == nullptr; }

void NSWindow::setLevel(int level) {
  world().record("window level " + std::to_string(level));
  impl_->state.level = level;
}

void NSWindow::setCollectionBehavior(unsigned behavior) {
  world().record("window behaviour " + std::to_string(behavior));
  impl_->state.behavior = behavior;
}

void NSWindow::setTitle(std::string_view title) {
  world().record("window title " + std::string(title));
  impl_->state.title = title;
}

namespace headless {

const WindowState& windowState() { return world().windowParts->state; }
NSWindow& window() { return *world().window; }

void giveWindowTheKeyboard() {
  world().active = true;
  world().keyPopover = nullptr;
}

void pressCloseButton() {
  WindowParts& parts = *world().windowParts;
  const auto delegate = parts.delegate.lock();
  if (!delegate || delegate->windowShouldClose(*world().window)) parts.state.visible = false;
}

void moveWindow(NSRect frame) {
  WindowParts& parts = *world().windowParts;
  frame.size.width = std::max(frame.size.width, parts.state.minSize.width);
  frame.size.height = std::max(frame.size.height, parts.state.minSize.height);
  parts.state.frame = frame;
  parts.content->setFrame({{0, 0}, frame.size});
  if (parts.autosaveName.empty()) return;
  const Screen& screen = screenOfFrame(frame, world().screens);
  putSetting(parts.autosaveName, stringFromFrame({frame, screen.frame}));
}

}  // namespace headless
}  // namespace platform
