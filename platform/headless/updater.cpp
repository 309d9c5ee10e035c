// SPDX-License-Identifier: MIT
#include "platform/updater.h"

#include "platform/headless/world.h"

namespace platform {

using headless::world;

struct SPUStandardUpdaterController::Impl {};

SPUStandardUpdaterController::SPUStandardUpdaterController(bool /*startingUpdater*/, std::nullptr_t /*updaterDelegate*/,
                                                           std::nullptr_t /*userDriverDelegate*/) {
  world().record("updater start");
}
SPUStandardUpdaterController::~SPUStandardUpdaterController() = default;

void SPUStandardUpdaterController::checkForUpdates(NSObject* /*sender*/) { world().record("updater check"); }

}  // namespace platform
