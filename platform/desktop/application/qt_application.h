// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <functional>
#include <memory>

namespace platform::desktop {

class Bus;

/// Qt's application. Only a request to quit is handled here: Qt would close the windows first, and ours never close.
class QtApplication : public QApplication {
 public:
  using QApplication::QApplication;

  /// Ends the process with a message if there is no display. Qt connects to the session bus as it starts, without a
  /// time limit: if the bus does not answer soon, Qt is kept from using it for this run.
  static std::unique_ptr<QtApplication> start(Bus& sessionBus);

  std::function<void()> onQuit;

  bool event(QEvent* event) override;
};

}  // namespace platform::desktop
