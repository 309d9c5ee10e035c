// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

/// Small helpers for XCB.
namespace platform::desktop::x11 {

struct Free {
  void operator()(void* pointer) const { std::free(pointer); }
};
/// A reply or an error, which XCB allocates with malloc.
template <typename T>
using Reply = std::unique_ptr<T, Free>;

/// Qt's connection, not to be closed; null if the display is not X11.
xcb_connection_t* connection();
/// The number of the default screen.
int screenNumber();
xcb_window_t rootWindow(xcb_connection_t* connection);
xcb_atom_t atom(xcb_connection_t* connection, const std::string& name);

/// Whether the event tells of another layout, other modifiers or another keyboard.
bool isKeyboardChange(xcb_connection_t* connection, const xcb_generic_event_t& event);

/// The type of an event, without the bit that marks synthetic ones.
inline unsigned typeOf(const xcb_generic_event_t& event) { return event.response_type & 0x7FU; }

}  // namespace platform::desktop::x11
