// SPDX-License-Identifier: MIT
#include "platform/updater.h"

namespace platform {

bool SPUStandardUpdaterController::perform(Selector action, NSObject* sender) {
  if (action != Selector{"checkForUpdates"}) return false;
  checkForUpdates(sender);
  return true;
}

}  // namespace platform
