// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace platform::desktop {

/// What a window manager is asked to do with a window.
struct WindowState {
  bool aboveOthers = false;
  bool onEveryWorkspace = false;
};

/// Which window gets the keyboard when an active one is hidden.
enum class NextActive {
  Previous,  ///< that of another program that was active last, if it can still be seen; else the desktop's choice
  DesktopsChoice
};

/// What Qt has no API for, on the kind of display that the program runs on.
class WindowSystem {
 public:
  virtual ~WindowSystem() = default;

  /// To be called before each show. Keeps the window out of taskbars and pagers.
  virtual void prepareToShow(QWidget& window, WindowState state) = 0;
  /// For a window that is shown. Without `onEveryWorkspace` it is moved to the current workspace.
  virtual void applyState(QWidget& window, WindowState state) = 0;
  /// Raises a window that is shown and gives it the keyboard, as the user has asked for.
  virtual void activate(QWidget& window) = 0;
  /// To be called before a window is hidden; `next` counts if it is active.
  virtual void prepareToHide(QWidget& window, NextActive next) = 0;
  /// Whether the user works in this window, or it is about to be activated. A key grab, a menu of ours or a panel that
  /// has the keyboard for a moment changes nothing.
  virtual bool isActive(const QWidget& window) = 0;
  /// A token by which the compositor allows the next activation (xdg-activation). It comes with a request from outside;
  /// to be called for each such request, with an empty token if it has none.
  virtual void setActivationToken(const QString& token) = 0;

  /// False while the window manager has not finished activating or hiding a window, for a second at most.
  virtual bool isSettled() const = 0;
  std::function<void()> onSettled;

  /// Whether the program can know and set the positions of its windows.
  virtual bool canPosition() const = 0;
  /// Whether windows can be translucent now. All windows are repainted after a change.
  virtual bool isComposited() const = 0;
};

}  // namespace platform::desktop
