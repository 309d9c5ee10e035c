// SPDX-License-Identifier: MIT
#include "platform/desktop/x11/ewmh.h"

#include <xcb/xcb_icccm.h>

#include <algorithm>

#include "platform/desktop/x11/x11.h"

namespace platform::desktop::x11 {
namespace {

constexpr auto ofTheUser = XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER;

}  // namespace

Ewmh::Ewmh(xcb_connection_t* connection)
    : screen_(screenNumber()), root_(rootWindow(connection)), managementAtom_(atom(connection, "WM_STATE")) {
  xcb_ewmh_init_atoms_replies(&ewmh_, xcb_ewmh_init_atoms(connection, &ewmh_), nullptr);
}

xcb_window_t Ewmh::activeWindow() {
  xcb_window_t active = XCB_NONE;
  xcb_ewmh_get_active_window_reply(&ewmh_, xcb_ewmh_get_active_window(&ewmh_, screen_), &active, nullptr);
  return active;
}

std::uint32_t Ewmh::currentWorkspace() {
  std::uint32_t workspace = 0;
  xcb_ewmh_get_current_desktop_reply(&ewmh_, xcb_ewmh_get_current_desktop(&ewmh_, screen_), &workspace, nullptr);
  return workspace;
}

bool Ewmh::isOnCurrentWorkspace(xcb_window_t window) {
  std::uint32_t workspace = everyWorkspace;
  xcb_ewmh_get_wm_desktop_reply(&ewmh_, xcb_ewmh_get_wm_desktop(&ewmh_, window), &workspace, nullptr);
  return workspace == everyWorkspace || workspace == currentWorkspace();
}

bool Ewmh::isPanel(xcb_window_t window) {
  xcb_ewmh_get_atoms_reply_t types{};
  const auto request = xcb_ewmh_get_wm_window_type(&ewmh_, window);
  if (xcb_ewmh_get_wm_window_type_reply(&ewmh_, request, &types, nullptr) == 0) return false;
  const xcb_atom_t* const end = types.atoms + types.atoms_len;
  const bool panel = std::find<const xcb_atom_t*>(types.atoms, end, ewmh_._NET_WM_WINDOW_TYPE_DOCK) != end;
  xcb_ewmh_get_atoms_reply_wipe(&types);
  return panel;
}

bool Ewmh::isAbove(xcb_window_t window, xcb_window_t other) {
  xcb_ewmh_get_windows_reply_t stack{};
  const auto request = xcb_ewmh_get_client_list_stacking(&ewmh_, screen_);
  if (xcb_ewmh_get_client_list_stacking_reply(&ewmh_, request, &stack, nullptr) == 0) return false;
  const xcb_window_t* const end = stack.windows + stack.windows_len;
  const auto* const found = std::find<const xcb_window_t*>(stack.windows, end, other);
  const bool above = found != end && std::find(found + 1, end, window) != end;
  xcb_ewmh_get_windows_reply_wipe(&stack);
  return above;
}

std::uint32_t Ewmh::managementState(xcb_window_t window) {
  const auto request = xcb_get_property(ewmh_.connection, 0, window, managementAtom_, XCB_ATOM_ANY, 0, 1);
  const Reply<xcb_get_property_reply_t> state(xcb_get_property_reply(ewmh_.connection, request, nullptr));
  const bool stated = state && xcb_get_property_value_length(state.get()) >= int(sizeof(std::uint32_t));
  if (!stated) return XCB_ICCCM_WM_STATE_WITHDRAWN;
  return *static_cast<std::uint32_t*>(xcb_get_property_value(state.get()));
}

bool Ewmh::isManaged(xcb_window_t window) { return managementState(window) != XCB_ICCCM_WM_STATE_WITHDRAWN; }

xcb_window_t Ewmh::supportingWindow(xcb_window_t of) {
  xcb_window_t window = XCB_NONE;
  xcb_ewmh_get_supporting_wm_check_reply(&ewmh_, xcb_ewmh_get_supporting_wm_check(&ewmh_, of), &window, nullptr);
  return window;
}

bool Ewmh::hasWindowManager() {
  const xcb_window_t window = supportingWindow(root_);
  return window != XCB_NONE && supportingWindow(window) == window;
}

std::string Ewmh::windowManagerName() {
  xcb_ewmh_get_utf8_strings_reply_t name{};
  const auto request = xcb_ewmh_get_wm_name(&ewmh_, supportingWindow(root_));
  if (xcb_ewmh_get_wm_name_reply(&ewmh_, request, &name, nullptr) == 0) return {};
  std::string text(name.strings, name.strings_len);
  xcb_ewmh_get_utf8_strings_reply_wipe(&name);
  return text;
}

void Ewmh::setStates(xcb_window_t window, std::vector<xcb_atom_t> states) {
  xcb_ewmh_set_wm_state(&ewmh_, window, static_cast<std::uint32_t>(states.size()), states.data());
}

void Ewmh::setOnEveryWorkspace(xcb_window_t window, bool onEveryWorkspace) {
  if (onEveryWorkspace) {
    xcb_ewmh_set_wm_desktop(&ewmh_, window, everyWorkspace);
  } else {
    xcb_delete_property(ewmh_.connection, window, ewmh_._NET_WM_DESKTOP);
  }
}

void Ewmh::requestState(xcb_window_t window, bool on, xcb_atom_t state) {
  xcb_ewmh_request_change_wm_state(&ewmh_, screen_, window, on ? XCB_EWMH_WM_STATE_ADD : XCB_EWMH_WM_STATE_REMOVE,
                                   state, XCB_ATOM_NONE, ofTheUser);
}

void Ewmh::requestWorkspace(xcb_window_t window, std::uint32_t workspace) {
  xcb_ewmh_request_change_wm_desktop(&ewmh_, screen_, window, workspace, ofTheUser);
}

void Ewmh::requestActive(xcb_window_t window, xcb_window_t from) {
  // Without a time: mutter refuses a request that is a millisecond older than the change of the keyboard before it.
  xcb_ewmh_request_change_active_window(&ewmh_, screen_, window, ofTheUser, XCB_CURRENT_TIME, from);
}

}  // namespace platform::desktop::x11
