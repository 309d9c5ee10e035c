// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QTimer>
#include <map>
#include <optional>

#include "platform/desktop/windows/escape_key.h"
#include "platform/desktop/windows/window_system.h"
#include "platform/desktop/x11/event_filter.h"
#include "platform/desktop/x11/ewmh.h"
#include "platform/desktop/x11/selection_watch.h"

namespace platform::desktop {

/// X11, by way of EWMH.
class X11WindowSystem : public WindowSystem, private x11::EventFilter {
 public:
  /// `connection` is Qt's. `isXWayland`: an X server for a Wayland session.
  X11WindowSystem(xcb_connection_t* connection, bool isXWayland);

  void prepareToShow(QWidget& window, WindowState state) override;
  void applyState(QWidget& window, WindowState state) override;
  void activate(QWidget& window) override;
  void prepareToHide(QWidget& window, NextActive next) override;
  bool isActive(const QWidget& window) override;
  void setActivationToken(const QString& /*token*/) override {}  // on X11 the time of the request decides
  bool isSettled() const override { return !expectation_; }
  bool canPosition() const override { return true; }
  bool isComposited() const override { return compositor_.isOwned(); }

 private:
  /// What the window manager has been asked to do and has not done yet.
  struct Expectation {
    xcb_window_t window;
    bool active;
  };

  bool take(xcb_generic_event_t& event) override;
  void updateWindowManager();
  void updateActiveWindow();
  void expect(Expectation expectation);
  void settle();
  void leaveWindowGroup(xcb_window_t window);
  void forbidMinimizing(xcb_window_t window);
  void remap(xcb_window_t window);
  void raise(xcb_window_t window);
  void moveToRequestedPosition(xcb_window_t window);
  bool canBeSeen(xcb_window_t window);

  xcb_connection_t* connection_;
  x11::Ewmh ewmh_;
  SelectionWatch compositor_;
  EscapeKey escapeKey_;
  xcb_atom_t managementAtom_;
  xcb_atom_t motifHintsAtom_;
  xcb_window_t root_;
  bool managed_ = false;                ///< an EWMH window manager runs
  bool focusesNewWindowsOnly_ = false;  ///< it only marks other windows as urgent when they ask for the keyboard
  xcb_window_t active_ = XCB_NONE;      ///< by _NET_ACTIVE_WINDOW, panels left out
  xcb_window_t lastActive_ = XCB_NONE;  ///< as `active_`, kept while none is active; on XWayland none is a Wayland one
  xcb_window_t previous_ = XCB_NONE;    ///< the last active window of another program; none if it is a Wayland one
  const bool isXWayland_;
  std::map<xcb_window_t, QPoint> requestedPositions_;  ///< of windows that are being shown
  std::optional<Expectation> expectation_;
  QTimer deadline_;
};

}  // namespace platform::desktop
