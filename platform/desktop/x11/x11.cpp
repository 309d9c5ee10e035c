// SPDX-License-Identifier: MIT
#include "platform/desktop/x11/x11.h"

#include <QGuiApplication>
#include <string_view>

namespace platform::desktop::x11 {
namespace {

constexpr unsigned xkbNewKeyboardNotify = 0;  // kinds of XKB events; Qt's xcb plugin selects both
constexpr unsigned xkbMapNotify = 1;

}  // namespace

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

bool isKeyboardChange(xcb_connection_t* connection, const xcb_generic_event_t& event) {
  constexpr std::string_view xkbName = "XKEYBOARD";
  static const Reply<xcb_query_extension_reply_t> xkb(
      xcb_query_extension_reply(connection, xcb_query_extension(connection, xkbName.size(), xkbName.data()), nullptr));
  const unsigned type = typeOf(event);
  if (type == XCB_MAPPING_NOTIFY) return true;
  const bool isXkb = xkb && xkb->present != 0 && type == xkb->first_event;  // all XKB events share one type
  return isXkb && (event.pad0 == xkbNewKeyboardNotify || event.pad0 == xkbMapNotify);
}

}  // namespace platform::desktop::x11
