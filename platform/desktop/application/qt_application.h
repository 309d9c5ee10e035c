// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <functional>
#include <memory>

namespace platform::desktop {

class Bus;

/// Qt's application, but for its way to quit: it would first close the windows, which never close.
class QtApplication : public QApplication {
 public:
  using QApplication::QApplication;

  /// Ends the process with a message where there is no display. Qt asks the session bus at its start, and
  /// waits as long as that takes: with one that does not answer soon, it goes without in this run.
  static std::unique_ptr<QtApplication> start(Bus& sessionBus);

  std::function<void()> onQuit;

  bool event(QEvent* event) override;
};

}  // namespace platform::desktop
