// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>
#include <functional>

class QScreen;

namespace platform::desktop {

/// Tells that screens came, went, or changed in size, or that a panel took room on one: once for all that happens
/// together, when it is over.
class ScreenChanges : public QObject {
 public:
  explicit ScreenChanges(std::function<void()> changed);

 private:
  void watch(QScreen& screen);

  QTimer settled_;
};

}  // namespace platform::desktop
