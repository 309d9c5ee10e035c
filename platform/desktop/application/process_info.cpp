// SPDX-License-Identifier: MIT
#include "platform/process_info.h"

namespace platform {

bool NSProcessInfo::isOperatingSystemAtLeastVersion(NSOperatingSystemVersion version) {
  return NSOperatingSystemVersion{13, 0, 0} >= version;
}

}  // namespace platform
