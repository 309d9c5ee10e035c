// SPDX-License-Identifier: MIT
#include "platform/application.h"

#include <stdexcept>
#include <utility>

#include "platform/headless/world.h"
#include "platform/notification_center.h"

namespace platform {

using headless::world;

struct NSApplication::Impl {};

NSApplication::NSApplication() { world().terminated = false; }
NSApplication::~NSApplication() = default;

std::shared_ptr<NSApplication> NSApplication::sharedApplication() {
  static std::weak_ptr<NSApplication> shared;
  if (auto existing = shared.lock()) return existing;
  std::shared_ptr<NSApplication> made(new NSApplication);
  shared = made;
  return made;
}

void NSApplication::setActivationPolicy(NSApplicationActivationPolicy policy) {
  world().record("application activation policy " + std::to_string(policy));
}

void NSApplication::setDelegate(const std::weak_ptr<NSApplicationDelegate>& delegate) { world().delegate = delegate; }

void NSApplication::setMainMenu(const std::shared_ptr<NSMenu>& menu) {
  world().record("application main menu");
  world().mainMenu = menu;
}

// The loop is the test itself: it moves the clock and presses the keys.
void NSApplication::run() {
  if (const auto delegate = world().delegate.lock()) delegate->applicationDidFinishLaunching();
}

void NSApplication::activateIgnoringOtherApps(bool /*ignoringOthers*/) {
  world().record("application activate");
  headless::bringPopoversBack();
  if (world().window != nullptr && world().window->isVisible()) headless::giveWindowTheKeyboard();
}

void NSApplication::hide(NSObject* /*sender*/) {
  world().record("application hide");
  world().active = false;
  if (world().windowParts != nullptr) world().windowParts->state.visible = false;
  headless::hidePopovers();
}

void NSApplication::terminate(NSObject* /*sender*/) {
  if (!std::exchange(world().terminated, true)) headless::terminate();
}

std::shared_ptr<NSWindow> NSApplication::keyWindow() const {
  if (world().window == nullptr || !world().window->isKeyWindow()) return nullptr;
  return std::static_pointer_cast<NSWindow>(world().window->shared_from_this());
}

std::shared_ptr<NSApplicationDelegate> NSApplication::delegate() const { return world().delegate.lock(); }

void NSNotificationCenter::observerAdded(std::string_view name) { world().record("observe " + std::string(name)); }

namespace headless {

World& world() {
  static World theWorld;
  return theWorld;
}

const std::vector<std::string>& effects() { return world().effects; }
void clearEffects() { world().effects.clear(); }

void activateOtherProgram() { world().active = false; }
bool programIsActive() { return world().active; }

bool reopen() {
  const auto delegate = world().delegate.lock();
  const bool visible = world().windowParts != nullptr && world().windowParts->state.visible;
  return delegate && delegate->applicationShouldHandleReopen(*NSApplication::sharedApplication(), visible);
}

void terminate() {
  if (const auto delegate = world().delegate.lock()) delegate->applicationWillTerminate();
}

const std::shared_ptr<NSMenu>& mainMenu() { return world().mainMenu; }

namespace {

NSMenuItem* findItem(const NSMenu& menu, const std::function<bool(const NSMenuItem&)>& wanted) {
  for (const auto& item : menu.items()) {
    if (wanted(*item)) return item.get();
    NSMenuItem* const below = item->submenu() ? findItem(*item->submenu(), wanted) : nullptr;
    if (below != nullptr) return below;
  }
  return nullptr;
}

}  // namespace

NSMenuItem& menuItem(const NSMenu& menu, std::string_view title) {
  NSMenuItem* const item = findItem(menu, [&](const NSMenuItem& candidate) { return candidate.title() == title; });
  if (item == nullptr) throw std::logic_error("no menu item " + std::string(title));
  return *item;
}

bool pressKeyEquivalent(std::string_view key, unsigned modifiers) {
  if (!world().mainMenu || !world().active) return false;
  NSMenuItem* const item = findItem(*world().mainMenu, [&](const NSMenuItem& candidate) {
    return candidate.keyEquivalent() == key && candidate.keyEquivalentModifierMask() == modifiers;
  });
  return item != nullptr && item->performAction();
}

}  // namespace headless
}  // namespace platform
