// SPDX-License-Identifier: MIT
#include "platform/updater.h"

#include "platform/application_metadata.h"
#include "platform/desktop/base/strings.h"
#include "platform/desktop/files/module.h"
#include "platform/desktop/updates/update_window.h"
#include "platform/desktop/windows/program_windows.h"

namespace platform {

struct SPUStandardUpdaterController::Impl {
  std::unique_ptr<desktop::UpdateWindow> window;  ///< from the first check on
};

SPUStandardUpdaterController::SPUStandardUpdaterController(bool /*startingUpdater*/, std::nullptr_t /*updaterDelegate*/,
                                                           std::nullptr_t /*userDriverDelegate*/)
    : impl_(std::make_unique<Impl>()) {}
SPUStandardUpdaterController::~SPUStandardUpdaterController() = default;

void SPUStandardUpdaterController::checkForUpdates(NSObject* /*sender*/) {
  if (!impl_->window) {
    impl_->window = std::make_unique<desktop::UpdateWindow>(
        desktop::ProgramWindows::instance(), desktop::toQString(metadata::feed), desktop::moduleFolders());
  }
  impl_->window->check();
}

}  // namespace platform
