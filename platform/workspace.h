// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

#include "platform/notification_center.h"

namespace platform {

/// The machine is awake again. Posted by the workspace's centre, without an object.
constexpr std::string_view NSWorkspaceDidWakeNotification = "NSWorkspaceDidWakeNotification";
/// The displays are on again. Posted by the workspace's centre, without an object.
constexpr std::string_view NSWorkspaceScreensDidWakeNotification = "NSWorkspaceScreensDidWakeNotification";

/// What happens to the machine and its screens. While a screen locker is known to cover everything, as on X11, the news
/// of a wake or an unlock is held back, and posted when the locker has gone.
class NSWorkspace {
 public:
  static NSWorkspace& sharedWorkspace();
  NSNotificationCenter& notificationCenter();

 private:
  NSNotificationCenter center_;
};

/// What the desktop's services tell every program: "com.apple.screenIsUnlocked", without an object.
class NSDistributedNotificationCenter : public NSNotificationCenter {
 public:
  static NSDistributedNotificationCenter& defaultCenter();
};

}  // namespace platform
