// SPDX-License-Identifier: MIT
#pragma once

#include <tuple>

namespace platform {

struct NSOperatingSystemVersion {
  int majorVersion = 0;
  int minorVersion = 0;
  int patchVersion = 0;

  bool operator>=(const NSOperatingSystemVersion& other) const {
    return std::tie(majorVersion, minorVersion, patchVersion) >=
           std::tie(other.majorVersion, other.minorVersion, other.patchVersion);
  }
};

class NSProcessInfo {
 public:
  /// Whether the system can do what that version brought. A desktop has login items, so it answers as 13.0.
  static bool isOperatingSystemAtLeastVersion(NSOperatingSystemVersion);
};

}  // namespace platform
