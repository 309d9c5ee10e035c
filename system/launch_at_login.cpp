// SPDX-License-Identifier: MIT
#include "app/app_delegate.h"
#include "platform/log.h"
#include "platform/login_item.h"
#include "platform/process_info.h"
#include "platform/user_defaults.h"

namespace quillberry {

using namespace platform;

bool AppDelegate::loginItemsExist() { return NSProcessInfo::isOperatingSystemAtLeastVersion({13, 0, 0}); }

void AppDelegate::registerAtFirstLaunch() {
  if (!loginItemsExist()) return;
  NSUserDefaults& defaults = NSUserDefaults::standardUserDefaults();
  if (defaults.boolForKey("didOfferLaunchAtLogin")) return;
  // Stored before the attempt: whether it succeeds or not, there is only this one.
  defaults.setBool(true, "didOfferLaunchAtLogin");
  SMAppService::mainAppService().registerAndReturnError();
  showLoginItemStatus();
}

void AppDelegate::toggleLaunchAtLogin() {
  if (!loginItemsExist()) return;
  SMAppService& service = SMAppService::mainAppService();
  const bool enabled = service.status() == SMAppServiceStatusEnabled;
  const auto error = enabled ? service.unregisterAndReturnError() : service.registerAndReturnError();
  if (error) NSLog("Quillberry: launch-at-login toggle failed: " + error->localizedDescription);
  showLoginItemStatus();
}

void AppDelegate::showLoginItemStatus() {
  if (!loginMenuItem) return;
  const bool enabled = SMAppService::mainAppService().status() == SMAppServiceStatusEnabled;
  loginMenuItem->setState(enabled ? NSControlStateValueOn : NSControlStateValueOff);
}

}  // namespace quillberry
