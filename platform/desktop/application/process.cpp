// SPDX-License-Identifier: MIT
#include <syslog.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "platform/log.h"
#include "platform/process_info.h"

namespace platform {
namespace {

bool breaksTheLine(unsigned char c) { return c < 0x20 || c == 0x7F; }

}  // namespace

void NSLog(std::string_view message) {
  std::string line(message);
  std::replace_if(line.begin(), line.end(), breaksTheLine, ' ');
  syslog(LOG_USER | LOG_WARNING, "%s", line.c_str());
  std::fputs((line + '\n').c_str(), stderr);
}

bool NSProcessInfo::isOperatingSystemAtLeastVersion(NSOperatingSystemVersion version) {
  return NSOperatingSystemVersion{13, 0, 0} >= version;
}

}  // namespace platform
