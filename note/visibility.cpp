// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/user_defaults.h"

namespace quillberry {

using namespace platform;

void AppDelegate::showWindow() {
  window->makeKeyAndOrderFront(nullptr);
  NSApplication::sharedApplication()->activateIgnoringOtherApps(true);
  window->makeFirstResponder(*textView);
}

void AppDelegate::hideWindow() {
  saveNow();
  window->orderOut(nullptr);
  NSApplication::sharedApplication()->hide(nullptr);
}

void AppDelegate::toggleWindow() {
  if (window->isVisible() && window->isKeyWindow()) {
    hideWindow();
  } else {
    showWindow();
  }
}

bool AppDelegate::windowShouldClose(NSWindow& /*window*/) {
  hideWindow();
  return false;
}

bool AppDelegate::applicationShouldHandleReopen(NSApplication& /*app*/, bool /*hasVisibleWindows*/) {
  showWindow();
  return true;
}

void AppDelegate::togglePin() {
  pinned = !pinned;
  NSUserDefaults::standardUserDefaults().setBool(pinned, "pinned");
  applyPin();
}

void AppDelegate::applyPin() {
  window->setLevel(pinned ? NSFloatingWindowLevel : NSNormalWindowLevel);
  window->setCollectionBehavior(pinned ? NSWindowCollectionBehaviorCanJoinAllSpaces |
                                             NSWindowCollectionBehaviorFullScreenAuxiliary
                                       : NSWindowCollectionBehaviorManaged);
  window->setTitle(pinned ? "Quillberry \U0001F4CC" : "Quillberry");
  if (pinMenuItem) pinMenuItem->setState(pinned ? NSControlStateValueOn : NSControlStateValueOff);
}

}  // namespace quillberry
