// SPDX-License-Identifier: MIT
#include "platform/desktop/x11/x11.h"

#include <QGuiApplication>

namespace platform::desktop::x11 {

xcb_connection_t* connection() {
  auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  return x11 == nullptr ? nullptr : x11->connection();
}

int screenNumber() {
  char* host = nullptr;
  int display = 0;
  int screen = 0;
  xcb_parse_display(nullptr, &host, &display, &screen);
  std::free(host);
  return screen;
}

xcb_window_t rootWindow(xcb_connection_t* connection) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (int number = screenNumber(); number > 0 && screens.rem > 1; --number) xcb_screen_next(&screens);
  return screens.data->root;
}

xcb_atom_t atom(xcb_connection_t* connection, const std::string& name) {
  const auto request = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, request, nullptr));
  return reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

}  // namespace platform::desktop::x11
