// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <functional>
#include <vector>

#include "platform/frame_autosave.h"

class QScreen;

namespace platform::desktop {

/// In the program's coordinates: y grows upward from the lower edge of the first screen.
std::vector<Screen> screens();
NSRect fromQt(const QRect&);
QRect toQt(NSRect);

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
