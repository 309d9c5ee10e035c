// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb_ewmh.h>

#include <cstdint>
#include <string>
#include <vector>

namespace platform::desktop::x11 {

constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;

/// EWMH: what a window manager says of windows and workspaces, and requests to it. Each getter is a round trip to the X
/// server.
class Ewmh {
 public:
  /// `connection` is Qt's.
  explicit Ewmh(xcb_connection_t* connection);
  Ewmh(const Ewmh&) = delete;
  Ewmh& operator=(const Ewmh&) = delete;
  ~Ewmh() { xcb_ewmh_connection_wipe(&ewmh_); }

  /// The atoms, by their names.
  const xcb_ewmh_connection_t* operator->() const { return &ewmh_; }

  /// XCB_NONE if there is none, or if it is a Wayland window.
  xcb_window_t activeWindow();
  std::uint32_t currentWorkspace();
  bool isOnCurrentWorkspace(xcb_window_t window);
  bool isPanel(xcb_window_t window);
  /// By _NET_CLIENT_LIST_STACKING; false if that lacks one of them, or both are the same.
  bool isAbove(xcb_window_t window, xcb_window_t other);
  /// ICCCM's WM_STATE of a window; Withdrawn if it has none.
  std::uint32_t managementState(xcb_window_t window);
  /// Whether the window manager manages the window now.
  bool isManaged(xcb_window_t window);
  /// Checked as EWMH says, so that properties of one that has crashed do not count.
  bool hasWindowManager();
  /// Empty if it has none.
  std::string windowManagerName();

  // To be called before each show: window managers remove these properties when a window is withdrawn.
  void setType(xcb_window_t window, xcb_atom_t type) { xcb_ewmh_set_wm_window_type(&ewmh_, window, 1, &type); }
  void setStates(xcb_window_t window, std::vector<xcb_atom_t> states);
  /// Otherwise the window manager chooses the workspace.
  void setOnEveryWorkspace(xcb_window_t window, bool onEveryWorkspace);

  // Requests for a window that is shown. They are marked as the user's, for focus stealing prevention.
  void requestState(xcb_window_t window, bool on, xcb_atom_t state);
  void requestWorkspace(xcb_window_t window, std::uint32_t workspace);
  /// `from` is the window that was active, or XCB_NONE.
  void requestActive(xcb_window_t window, xcb_window_t from);

 private:
  xcb_window_t supportingWindow(xcb_window_t of);

  int screen_;
  xcb_window_t root_;
  xcb_ewmh_connection_t ewmh_{};
  xcb_atom_t managementAtom_;
};

}  // namespace platform::desktop::x11
