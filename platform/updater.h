// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

#include "platform/object.h"

namespace platform {

/// Looks for a newer version of the program when the user asks for it, and never by itself. On a desktop it asks the
/// release feed that was named in the build (`metadata::feed`), tells the answer in a small window of its own, and
/// downloads and starts nothing; without a feed it says that updates come with the system's packages.
class SPUStandardUpdaterController : public NSObject {
 public:
  /// The program has no use for an updater that starts later or asks it anything: `startingUpdater` is true and there
  /// are no delegates.
  SPUStandardUpdaterController(bool startingUpdater, std::nullptr_t updaterDelegate, std::nullptr_t userDriverDelegate);
  ~SPUStandardUpdaterController() override;

  /// Shows the window and asks the feed. While it is open, it comes to the front. `sender` is not used.
  void checkForUpdates(NSObject* sender);

  /// Knows "checkForUpdates".
  bool perform(Selector action, NSObject* sender) override;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace platform
