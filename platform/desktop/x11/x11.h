// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>

/// What every part that speaks to the X server uses.
namespace platform::desktop::x11 {

struct Free {
  void operator()(void* pointer) const { std::free(pointer); }
};
/// A reply or an error of the server's.
template <typename T>
using Reply = std::unique_ptr<T, Free>;

/// Qt's connection, which stays its own; null on other displays than X11.
xcb_connection_t* connection();
/// The number of the screen that the display's name asks for.
int screenNumber();
xcb_window_t rootWindow(xcb_connection_t* connection);
xcb_atom_t atom(xcb_connection_t* connection, const std::string& name);

/// The type of an event; whether another client made it up makes no difference.
inline unsigned typeOf(const xcb_generic_event_t& event) { return event.response_type & 0x7FU; }

}  // namespace platform::desktop::x11
