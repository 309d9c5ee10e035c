#include "platform/application.h"

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct NSApplication::Impl {};

NSApplication::NSApplication() = default;
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

// The loop is the test itself: it moves the clock and presses the keys.
void NSApplication::run() {
  if (const auto delegate = world().delegate.lock()) delegate->applicationDidFinishLaunching();
}

void NSApplication::activateIgnoringOtherApps(bool /*ignoringOthers*/) {
  world().record("application activate");
  world().active = true;
}

void NSApplication::hide(NSObject* /*sender*/) {
  world().record("application hide");
  world().active = false;
  if (world().windowParts != nullptr) world().windowParts->state.visible = false;
}

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

}  // namespace headless
}  // namespace platform
