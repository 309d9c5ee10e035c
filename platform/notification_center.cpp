// SPDX-License-Identifier: MIT
#include "platform/notification_center.h"

#include "platform/workspace.h"

namespace platform {

NSNotificationCenter& NSNotificationCenter::defaultCenter() {
  static NSNotificationCenter center;
  return center;
}

void NSNotificationCenter::addObserver(const std::weak_ptr<NSObject>& observer, Selector action, std::string_view name,
                                       const std::optional<std::weak_ptr<NSObject>>& object) {
  observerAdded(name);
  entries_.push_back({observer, action, name, object});
}

void NSNotificationCenter::postNotificationName(std::string_view name, const NSObject* object) {
  // A copy: an observer may add another one.
  const auto entries = entries_;
  for (const Entry& entry : entries) {
    if (entry.name != name || (entry.object && entry.object->lock().get() != object)) continue;
    if (const auto observer = entry.observer.lock()) observer->perform(entry.action, nullptr);
  }
}

NSWorkspace& NSWorkspace::sharedWorkspace() {
  static NSWorkspace workspace;
  return workspace;
}

NSNotificationCenter& NSWorkspace::notificationCenter() { return center_; }

NSDistributedNotificationCenter& NSDistributedNotificationCenter::defaultCenter() {
  static NSDistributedNotificationCenter center;
  return center;
}

}  // namespace platform
