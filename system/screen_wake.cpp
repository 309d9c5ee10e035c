// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/dispatch.h"
#include "platform/user_defaults.h"
#include "platform/workspace.h"

namespace quillberry {

using namespace platform;

namespace {

constexpr double wakeDebounce = 5.0;           // seconds of the wall clock
constexpr double wakePresentationDelay = 0.6;  // seconds
constexpr std::string_view screenIsUnlocked = "com.apple.screenIsUnlocked";

}  // namespace

void AppDelegate::observeWake() {
  NSNotificationCenter& workspace = NSWorkspace::sharedWorkspace().notificationCenter();
  workspace.addObserver(self(), {"screenWoke"}, NSWorkspaceDidWakeNotification, std::nullopt);
  workspace.addObserver(self(), {"screenWoke"}, NSWorkspaceScreensDidWakeNotification, std::nullopt);
  NSDistributedNotificationCenter::defaultCenter().addObserver(self(), {"screenWoke"}, screenIsUnlocked, std::nullopt);
}

void AppDelegate::screenWoke() {
  if (!showOnWake) return;
  // A clock that was set back makes this negative; signals then count again once it has caught up.
  if (NSDate::now() - lastWakeShow <= wakeDebounce) return;
  lastWakeShow = NSDate::now();
  DispatchQueue::main().asyncAfter(wakePresentationDelay, [controller = std::weak_ptr(self())] {
    if (const auto alive = controller.lock()) alive->showWindow();
  });
}

void AppDelegate::toggleShowOnWake() {
  showOnWake = !showOnWake;
  NSUserDefaults::standardUserDefaults().setBool(showOnWake, "showOnWake");
  wakeMenuItem->setState(showOnWake ? NSControlStateValueOn : NSControlStateValueOff);
}

}  // namespace quillberry
