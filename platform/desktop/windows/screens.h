// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QRect>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>
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
/// `frameWholeOnScreens` for the screens that there are, in Qt's coordinates.
QRect wholeOnScreens(const QRect& frame);

/// Tells that screens are added, removed or resized, or a panel takes room.
class ScreenChanges : public QObject {
 public:
  /// `removed` is called with each screen that goes, before its windows are moved; `settled` after the last of the
  /// changes that come together.
  ScreenChanges(std::function<void(const QScreen&)> removed, std::function<void()> settled);

 private:
  void watch(QScreen& screen);
  void change();

  QTimer settled_;
};

/// Where a window was on a screen that has gone since, in Qt's coordinates.
struct Home {
  QString screen;
  QRect screenFrame;
  QRect frame;
  std::optional<QRect> awayFrame;  ///< where the window went; none until it rests there

  bool isBack() const;
};

}  // namespace platform::desktop
