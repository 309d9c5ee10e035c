// SPDX-License-Identifier: MIT
#include "platform/login_item.h"

#include "platform/desktop/session/autostart_entry.h"

namespace platform {
namespace {

desktop::AutostartEntry entry() { return desktop::AutostartEntry(desktop::runningProgram()); }

}  // namespace

SMAppService& SMAppService::mainAppService() {
  static SMAppService service;
  return service;
}

SMAppServiceStatus SMAppService::status() const { return entry().status(); }
std::optional<NSError> SMAppService::registerAndReturnError() { return entry().switchOn(); }
std::optional<NSError> SMAppService::unregisterAndReturnError() { return entry().switchOff(); }

}  // namespace platform
