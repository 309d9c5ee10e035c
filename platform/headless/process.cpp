// SPDX-License-Identifier: MIT
#include "platform/headless/world.h"
#include "platform/log.h"

namespace platform {

using headless::world;

void NSLog(std::string_view message) { world().log.emplace_back(message); }

bool NSProcessInfo::isOperatingSystemAtLeastVersion(NSOperatingSystemVersion version) {
  return world().systemVersion >= version;
}

namespace headless {

const std::vector<std::string>& log() { return world().log; }
void setSystemVersion(NSOperatingSystemVersion version) { world().systemVersion = version; }

}  // namespace headless
}  // namespace platform
