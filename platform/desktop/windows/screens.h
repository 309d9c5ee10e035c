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

/// In the program's coordinates: y grows upward from the bottom of the first screen. Panels count where there is one
/// screen only: with several, X11 does not tell on which of them a panel is.
std::vector<Screen> screens();
/// A screen without the panels that Qt knows of, in Qt's coordinates: with several screens these may be none.
QRect roomOf(const QScreen&);
NSRect fromQt(const QRect&);
QRect toQt(NSRect);

/// Calls `changed` after screens were added, removed or resized, or a panel took room; once for changes that come
/// together.
class ScreenChanges : public QObject {
 public:
  explicit ScreenChanges(std::function<void()> changed);

 private:
  void watch(QScreen& screen);

  QTimer settled_;
};

}  // namespace platform::desktop
