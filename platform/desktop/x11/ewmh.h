// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb_ewmh.h>

#include <cstdint>
#include <string>
#include <vector>

namespace platform::desktop::x11 {

constexpr std::uint32_t everyWorkspace = 0xFFFFFFFF;

/// What a window manager tells of windows and workspaces by the rules of EWMH, and what it is asked for. Each question
/// is a round trip to the X server.
class Ewmh {
 public:
  /// `connection` is Qt's and stays its own.
  explicit Ewmh(xcb_connection_t* connection);
  Ewmh(const Ewmh&) = delete;
  Ewmh& operator=(const Ewmh&) = delete;
  ~Ewmh() { xcb_ewmh_connection_wipe(&ewmh_); }

  /// The atoms, by their names.
  const xcb_ewmh_connection_t* operator->() const { return &ewmh_; }

  /// XCB_NONE if there is none, or none that X11 knows.
  xcb_window_t activeWindow();
  std::uint32_t currentWorkspace();
  bool isOnCurrentWorkspace(xcb_window_t window);
  bool isPanel(xcb_window_t window);
  /// Whether the window manager has taken the window up, and has not let go of it.
  bool isManaged(xcb_window_t window);
  /// Whether a window manager runs. It names a window of its own, which names itself: what it leaves behind does not.
  bool hasWindowManager();
  /// Empty if it has none.
  std::string windowManagerName();

  // Before the window is shown, for window managers wipe these when it is withdrawn.
  void setType(xcb_window_t window, xcb_atom_t type) { xcb_ewmh_set_wm_window_type(&ewmh_, window, 1, &type); }
  void setStates(xcb_window_t window, std::vector<xcb_atom_t> states);
  /// On every workspace, or wherever the window manager puts it.
  void setOnEveryWorkspace(xcb_window_t window, bool onEveryWorkspace);

  // Of a window that is shown; as wishes of the user's, which focus stealing rules respect.
  void requestState(xcb_window_t window, bool on, xcb_atom_t state);
  void requestWorkspace(xcb_window_t window, std::uint32_t workspace);
  /// `time` is the X server's; `from` is the window that was active, or XCB_NONE.
  void requestActive(xcb_window_t window, xcb_timestamp_t time, xcb_window_t from);

 private:
  xcb_window_t supportingWindow(xcb_window_t of);

  int screen_;
  xcb_window_t root_;
  xcb_ewmh_connection_t ewmh_{};
  xcb_atom_t managementAtom_;
};

}  // namespace platform::desktop::x11
