// SPDX-License-Identifier: MIT
#pragma once

#include <QSocketNotifier>
#include <functional>
#include <memory>

#include "platform/desktop/base/unique_fd.h"

namespace platform::desktop {

/// Turns SIGTERM, SIGINT and SIGHUP into calls from the main loop, for as long as it lives. One instance at a time.
class TerminationSignals {
 public:
  TerminationSignals();
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

  /// Signals that arrived earlier are delivered too, once the main loop runs. Several may be merged into one call.
  void deliverTo(std::function<void()> terminate);

 private:
  UniqueFd readEnd_;
  UniqueFd writeEnd_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace platform::desktop
