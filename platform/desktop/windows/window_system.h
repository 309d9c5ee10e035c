// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace platform::desktop {

/// Where a window stands among those of other programs.
struct Placement {
  bool aboveOthers = false;
  bool onEveryWorkspace = false;
};

/// What Qt has no word for, on the kind of display that the program runs on.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  /// Before each show: the window belongs to an accessory program, in no taskbar and no pager.
  virtual void prepareToShow(QWidget& window, Placement placement) = 0;
  /// Places a window that is shown.
  virtual void place(QWidget& window, Placement placement) = 0;
  /// Raises a window that is shown and gives it the keyboard, as a wish of the user's.
  virtual void activate(QWidget& window) = 0;
  /// Before a window is taken off the screen.
  virtual void prepareToHide(QWidget& window) = 0;
  /// Whether the window is the one that the user works in, or is becoming it. A key grab, a menu of ours or a panel
  /// that has the keyboard for the moment changes nothing.
  virtual bool isActive(const QWidget& window) = 0;
  /// Gives the keyboard to the window that had it before one of ours did, if it is still there to be seen.
  virtual void activatePreviousProgram() = 0;
  /// The compositor's leave to take the keyboard, for the next window that is activated. It came with the request that
  /// is about to be answered; a request without one has an empty one.
  virtual void setActivationToken(const QString& token) = 0;

  /// False while a window is being activated, or hidden, and the window manager has not done it yet.
  virtual bool isSettled() const = 0;
  std::function<void()> onSettled;

  /// Whether windows have places that this program can learn and choose.
  virtual bool hasPlaces() const = 0;
  /// Whether windows may be see-through now. Each window is painted anew after a change.
  virtual bool isComposited() const = 0;
};

}  // namespace platform::desktop
