// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

namespace platform {

/// Why a service could not do what it was asked.
struct NSError {
  std::string localizedDescription;  ///< one line, for people
};

enum SMAppServiceStatus {
  SMAppServiceStatusNotRegistered = 0,
  SMAppServiceStatusEnabled = 1,  ///< the program is started when the user logs in
  SMAppServiceStatusRequiresApproval = 2,
  SMAppServiceStatusNotFound = 3,
};

/// Starting at login. On a desktop: the XDG autostart entry of the program's identifier. Every call looks afresh.
class SMAppService {
 public:
  /// The service for the running program.
  static SMAppService& mainAppService();

  /// What the desktop would do at the next login. On a desktop it is Enabled, NotRegistered (there is no entry, or it
  /// is switched off), or NotFound (there is one that is on, and what it would start is missing).
  SMAppServiceStatus status() const;

  /// No error when the program is started at the next login. An entry that is there is changed in what keeps it from
  /// that, and keeps all else.
  std::optional<NSError> registerAndReturnError();
  /// No error when the program is not started at the next login.
  std::optional<NSError> unregisterAndReturnError();
};

}  // namespace platform
