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
#include "platform/desktop/x11/x11_server_clock.h"

namespace platform::desktop {

/// Window managers under X11, by the rules of EWMH. Escape reaches the window's focus even while an input method
/// composes.
class X11WindowSystem : public WindowSystem, private x11::EventFilter {
 public:
  /// `connection` is Qt's and stays its own.
  explicit X11WindowSystem(xcb_connection_t* connection);

  void prepareToShow(QWidget& window, Placement placement) override;
  void place(QWidget& window, Placement placement) override;
  void activate(QWidget& window) override;
  void prepareToHide(QWidget& window) override;
  bool isActive(const QWidget& window) override;
  void activatePreviousProgram() override;
  void setActivationToken(const QString& /*token*/) override {}  // X11 goes by the time of the request
  bool isSettled() const override { return !expectation_; }
  bool hasPlaces() const override { return true; }
  bool isComposited() const override { return compositor_.isOwned(); }

 private:
  /// What the window manager has been asked for and has not done yet.
  struct Expectation {
    xcb_window_t window;
    bool active;
  };

  bool take(xcb_generic_event_t& event) override;
  void updateWindowManager();
  void updateActiveWindow();
  void expect(Expectation expectation);
  void settle();
  void leaveProgramGroup(xcb_window_t window);
  void forbidMinimizing(xcb_window_t window);
  void mapAnew(xcb_window_t window);
  void moveWhereAsked(xcb_window_t window);
  bool canBeSeen(xcb_window_t window);

  xcb_connection_t* connection_;
  x11::Ewmh ewmh_;
  SelectionWatch compositor_;
  EscapeKey escapeKey_;
  X11ServerClock clock_;
  xcb_atom_t managementAtom_;
  xcb_atom_t motifHintsAtom_;
  xcb_window_t root_;
  bool managed_ = false;                  ///< a window manager runs, and tells what it does
  bool focusesNewWindowsOnly_ = false;    ///< it marks others as urgent when they ask for the keyboard
  xcb_window_t active_ = XCB_NONE;        ///< the window that the user works in, by its word
  xcb_window_t previous_ = XCB_NONE;      ///< the last active window that is not ours; none if that is no X11 window
  const bool besideWayland_;              ///< whose windows are none to X11
  std::map<xcb_window_t, QPoint> asked_;  ///< where windows are to come up that are coming up now
  std::optional<Expectation> expectation_;
  QTimer deadline_;
};

}  // namespace platform::desktop
