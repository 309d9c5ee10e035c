// SPDX-License-Identifier: MIT
#include "platform/menu.h"

#include "platform/application.h"

namespace platform {

NSMenuItem::NSMenuItem(std::string title, Selector action, std::string keyEquivalent)
    : title_(std::move(title)), action_(action), keyEquivalent_(std::move(keyEquivalent)) {}

std::shared_ptr<NSMenuItem> NSMenuItem::separatorItem() {
  auto item = std::make_shared<NSMenuItem>();
  item->separator_ = true;
  return item;
}

void NSMenuItem::setState(int state) {
  state_ = state;
  if (onStateChange) onStateChange();
}

bool NSMenuItem::performAction() { return NSApplication::sharedApplication()->sendAction(action_, target_, this); }

}  // namespace platform
